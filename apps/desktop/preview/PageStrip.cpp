#include "preview/PageStrip.h"

#include <QAbstractListModel>
#include <QCache>
#include <QPainter>
#include <QPdfDocument>
#include <QPixmap>

namespace autonotify::desktop {
namespace {

constexpr int stripWidth = 96;
constexpr int paperWidth = 64;
constexpr int spaceAround = 8;
/// Of pages in small that were drawn; the others are drawn when they are scrolled to.
constexpr int mostKept = 200;

/// The pages as a list view wants them.
class PageModel : public QAbstractListModel {
 public:
  PageModel(QPdfDocument& document, const QWidget& strip)
      : document_(document), strip_(strip), drawn_(mostKept) {}

  int rowCount(const QModelIndex& parent) const override {
    return parent.isValid() ? 0 : document_.pageCount();
  }
  QVariant data(const QModelIndex& index, int role) const override {
    switch (role) {
      case Qt::DisplayRole:
        return strip_.locale().toString(index.row() + 1);
      case Qt::DecorationRole:
        return pageInSmall(index.row());
      case Qt::SizeHintRole:
        return QSize(
            stripWidth - 2 * spaceAround,
            paperSize(index.row()).height() + strip_.fontMetrics().height() + 2 * spaceAround);
      default:
        return {};
    }
  }

 private:
  QSize paperSize(int page) const {
    const QSizeF points = document_.pagePointSize(page);
    return {paperWidth, qRound(paperWidth * points.height() / points.width())};
  }

  QPixmap pageInSmall(int page) const {
    if (const QPixmap* kept = drawn_.object(page)) return *kept;
    const qreal ratio = strip_.devicePixelRatioF();
    QPixmap paper(paperSize(page) * ratio);
    // Paper is white in dark colours too.
    paper.fill(Qt::white);
    QPainter painter(&paper);
    painter.drawImage(0, 0, document_.render(page, paper.size()));
    painter.setPen(strip_.palette().color(QPalette::Mid));
    painter.drawRect(paper.rect().adjusted(0, 0, -1, -1));
    painter.end();
    paper.setDevicePixelRatio(ratio);
    drawn_.insert(page, new QPixmap(paper));
    return paper;
  }

  QPdfDocument& document_;
  const QWidget& strip_;
  mutable QCache<int, QPixmap> drawn_;
};

}  // namespace

PageStrip::PageStrip(QPdfDocument& document, QWidget* parent) : QListView(parent) {
  auto* pages = new PageModel(document, *this);
  pages->QObject::setParent(this);
  setViewMode(IconMode);
  setFlow(TopToBottom);
  setWrapping(false);
  setMovement(Static);
  setSpacing(spaceAround / 2);
  setIconSize({paperWidth, 2 * paperWidth});
  setFixedWidth(stripWidth + 2 * spaceAround);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setFrameShape(NoFrame);
  setAccessibleName(tr("Pages"));
  setModel(pages);
  connect(selectionModel(), &QItemSelectionModel::currentChanged, this,
          [this](const QModelIndex& page) { emit pageChosen(page.row()); });
}

void PageStrip::showPage(int page) {
  const QSignalBlocker quiet(this);
  setCurrentIndex(model()->index(page, 0));
}

}  // namespace autonotify::desktop
