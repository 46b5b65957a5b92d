#include "host/mail/Outbox.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <deque>
#include <optional>
#include <utility>

#include "host/services/HiddenFile.h"
#include "host/words/Words.h"

namespace autonotify::host {
namespace {

std::string sentence(const std::string& what, int error) {
  return Words::tr("%1: %2.", {what, std::strerror(error)});
}

[[noreturn]] void fail(const std::string& what, int error) {
  throw MailError(sentence(what, error));
}

/// In the order in which messages move, so that one that moves meanwhile is not overlooked.
constexpr OutboxPlace places[] = {OutboxPlace::waiting, OutboxPlace::sending, OutboxPlace::sent};
/// In the order of OutboxPlace.
constexpr std::array<const char*, 4> subfolders{"", ".", "sending", "sent"};

const char* subfolderOf(OutboxPlace place) {
  return subfolders.at(static_cast<std::size_t>(place));
}

std::string pathOf(const std::string& name, OutboxPlace place) {
  const std::string file = name + ".eml";
  return place == OutboxPlace::waiting ? file : std::string(subfolderOf(place)) + '/' + file;
}

/// The outbox as it is open for one act.
class OpenOutbox {
 public:
  /// `path` is for messages.
  explicit OpenOutbox(const std::string& path)
      : path_(path), folder_(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    if (!folder_.isOpen())
      fail(Words::tr("The outbox folder \"%1\" cannot be opened", {path}), errno);
  }

  int get() const { return folder_.get(); }

  bool holds(const std::string& name, OutboxPlace place) const {
    struct stat status {};
    if (::fstatat(get(), pathOf(name, place).c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0)
      return S_ISREG(status.st_mode) && status.st_size > 0;
    if (errno != ENOENT) failAt(place);
    return false;
  }

  OutboxPlace find(const std::string& name) const {
    for (const OutboxPlace place : places) {
      if (holds(name, place)) return place;
    }
    return OutboxPlace::nowhere;
  }

  bool holdsElsewhere(const std::string& name, OutboxPlace place) const {
    return std::ranges::any_of(
        places, [&](OutboxPlace other) { return other != place && holds(name, other); });
  }

  /// Whoever may use the outbox may use the folders in it.
  void makeSubfolders() const {
    for (const OutboxPlace place : {OutboxPlace::sending, OutboxPlace::sent}) {
      const std::string name = subfolderOf(place);
      if (makeSubfolder(name) != 0 && errno != EEXIST) failAt(place);
      // A file has no such path.
      if (::faccessat(get(), (name + "/.").c_str(), W_OK | X_OK, AT_EACCESS) != 0) failAt(place);
    }
  }

  /// False when it is not there, with errno set.
  bool remove(const std::string& name, OutboxPlace place) const {
    return ::unlinkat(get(), pathOf(name, place).c_str(), 0) == 0;
  }

  /// The same.
  bool rename(const std::string& name, OutboxPlace from, OutboxPlace to) const {
    const std::string path = pathOf(name, from);
    return ::renameat(get(), path.c_str(), get(), pathOf(name, to).c_str()) == 0;
  }

  /// Whether what was put or moved there lasts, whatever happens to the machine.
  bool keep(OutboxPlace place) const {
    const Descriptor folder(
        ::openat(get(), subfolderOf(place), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    return ::fsync(folder.get()) == 0;
  }

 private:
  int makeSubfolder(const std::string& name) const {
    if (::mkdirat(get(), name.c_str(), S_IRWXU) != 0) return -1;
    struct stat own {};
    if (::fstat(get(), &own) == 0) ::fchmodat(get(), name.c_str(), own.st_mode & 07777, 0);
    return ::fsync(get());
  }

  [[noreturn]] void failAt(OutboxPlace place) const {
    const int error = errno;
    fail(Words::tr("The outbox folder \"%1\" cannot be used", {path_ + '/' + subfolderOf(place)}),
         error);
  }

  const std::string& path_;
  Descriptor folder_;
};

/// Messages on their way into one place of the outbox.
class Putting {
 public:
  /// `path` is for messages.
  Putting(const OpenOutbox& outbox, const std::string& path, OutboxPlace place)
      : outbox_(outbox), path_(path), place_(place) {}

  std::vector<OutboxPut> run(const std::vector<OutboxMessage>& messages) {
    for (const OutboxMessage& message : messages)
      attempt(drafts_.emplace_back(message), &Putting::write);
    for (Draft& draft : drafts_)
      if (draft.file) draft.file->beginKeeping();
    for (Draft& draft : drafts_)
      if (draft.file) attempt(draft, &Putting::name);
    const bool hasNew = std::ranges::any_of(drafts_, [](const Draft& each) { return each.isNew; });
    if (hasNew && !outbox_.keep(place_)) takeAllBack(errno);
    std::vector<OutboxPut> puts;
    for (Draft& draft : drafts_) puts.push_back({draft.isNew, std::move(draft.fault)});
    return puts;
  }

 private:
  struct Draft {
    explicit Draft(const OutboxMessage& given) : message(given) {}
    const OutboxMessage& message;
    /// Of one that has no name yet.
    std::optional<HiddenFile> file = std::nullopt;
    bool isNew = false;
    std::string fault = {};
  };

  void attempt(Draft& draft, void (Putting::*step)(Draft&)) {
    try {
      (this->*step)(draft);
    } catch (const MailError& error) {
      draft.fault = error.what();
      draft.file.reset();
    }
  }

  void write(Draft& draft) {
    const std::string& name = draft.message.name;
    if (outbox_.find(name) != OutboxPlace::nowhere) return;
    draft.file.emplace(outbox_.get(), name);
    if (!draft.file->write(draft.message.content)) failWriting();
  }

  void name(Draft& draft) {
    if (!draft.file->keep()) failWriting();
    if (draft.isNew = giveName(draft); !draft.isNew) return;
    try {
      // Another sender's message of this name may have come since the first look.
      if (!outbox_.holdsElsewhere(draft.message.name, place_)) return;
      outbox_.remove(draft.message.name, place_);
      draft.isNew = false;
    } catch (const MailError& error) {
      takeBack(draft, error.what());
    }
  }

  /// False when one of that name is there.
  bool giveName(Draft& draft) {
    const std::string path = pathOf(draft.message.name, place_);
    const bool isNamed = draft.file->giveName(path);
    const int error = errno;
    draft.file.reset();
    if (isNamed) return true;
    if (outbox_.find(draft.message.name) != OutboxPlace::nowhere) return false;
    if (error == EEXIST)
      fail(Words::tr("The message cannot be put into the outbox, \"%1\" is in its way", {path}),
           error);
    fail(Words::tr("The message cannot be put into the outbox folder \"%1\"", {path_}), error);
  }

  void takeAllBack(int error) {
    for (Draft& draft : drafts_)
      if (draft.isNew)
        takeBack(
            draft,
            sentence(Words::tr("The message may not be kept in the outbox folder \"%1\"", {path_}),
                     error));
  }

  /// Left there, it would pass for one that was put in, though it may not last. Where it is gone
  /// already, a mail system has it.
  void takeBack(Draft& draft, std::string fault) {
    if (!outbox_.remove(draft.message.name, place_) && errno == ENOENT) return;
    draft.isNew = false;
    draft.fault = std::move(fault);
  }

  [[noreturn]] void failWriting() {
    fail(Words::tr("The message cannot be written into the outbox folder \"%1\"", {path_}), errno);
  }

  const OpenOutbox& outbox_;
  const std::string& path_;
  OutboxPlace place_;
  std::deque<Draft> drafts_;  // which stay where they are
};

}  // namespace

OutboxPlace Outbox::find(const std::string& name) const {
  if (::access(folder_.c_str(), F_OK) != 0 && errno == ENOENT) return OutboxPlace::nowhere;
  return OpenOutbox(folder_).find(name);
}

void Outbox::makeSubfolders() const {
  OpenOutbox(folder_).makeSubfolders();
}

bool Outbox::put(const OutboxMessage& message, OutboxPlace place) const {
  const OutboxPut put = putAll({message}, place).front();
  if (!put.fault.empty()) throw MailError(put.fault);
  return put.isNew;
}

std::vector<OutboxPut> Outbox::putAll(const std::vector<OutboxMessage>& messages,
                                      OutboxPlace place) const try {
  const OpenOutbox outbox(folder_);
  return Putting(outbox, folder_, place).run(messages);
} catch (const MailError& error) {
  return {messages.size(), OutboxPut{false, error.what()}};
}

void Outbox::move(const std::string& name, OutboxPlace from, OutboxPlace to) const {
  const OpenOutbox outbox(folder_);
  if (!outbox.rename(name, from, to)) {
    outbox.makeSubfolders();
    if (!outbox.rename(name, from, to))
      fail(Words::tr("The message \"%1\" cannot be moved to \"%2\"",
                     {folder_ + '/' + pathOf(name, from), folder_ + '/' + subfolderOf(to)}),
           errno);
  }
  // Not being able to make the move last is no failure: a crash that undoes it leaves a message of
  // which it is not known whether it went out, and that is not sent again by itself.
  outbox.keep(to);
}

void Outbox::withdraw(const std::string& name, OutboxPlace place) const {
  const OpenOutbox outbox(folder_);
  if (!outbox.remove(name, place) && errno != ENOENT)
    fail(Words::tr("The message cannot be taken out of the outbox folder \"%1\"", {folder_}),
         errno);
}

}  // namespace autonotify::host
