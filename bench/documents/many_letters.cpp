#include <sys/resource.h>

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>

#include "host/documents/PdfFile.h"
#include "host/services/HeadlessFormHost.h"

// Usage: many_letters COUNT FILE. Draws letters of two pages each, no two alike, into one PDF.
// Prints pages a second of processor time and the most memory of the whole process in MiB.

namespace autonotify::host {
namespace {

class Letter : public Report {
 public:
  Letter(FormHost& forms, int number) : Report(forms, "drLetter", "Letter") {
    margins = {1440, 1440, 0, 0};
    std::string text = "Client " + std::to_string(number) + "\r\n27 Princess Street\r\n\r\n";
    for (int i = 0; i < paragraphs; ++i)
      text += "Please arrange to submit to us by day " + std::to_string((number + i) % 31 + 1) +
              " all paper work that we need to allow us to complete the return. The following "
              "is a list of what we need from you, and by when:\r\n\t- Document required: bank "
              "statements of all accounts\r\n\t- Document required: input tax credit "
              "receipts\r\n\r\n";
    body_.setCaption(text);
  }

 private:
  static constexpr int paragraphs = 12;
  ReportLabel address_{*this, "Section4", "lblReturnAddress",
                       "Harbour & Pine LLP\r\n48 Harbour Street\r\nKingston Ontario  K7L 2Y4"};
  ReportLabel date_{*this, "Section4", "lblDate", "2026-04-15"};
  ReportLabel body_{*this, "Section1", "lblBody"};
};

int run(int count, const std::string& path) {
  std::filesystem::remove(path);
  HeadlessFormHost forms;
  PdfFile file(path);
  for (int number = 1; number <= count; ++number)
    file.add(PrintedReport(Letter(forms, number)), "Letter " + std::to_string(number));
  file.publish();
  const double seconds = static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  std::printf("%.0f %.1f\n", file.pages() / seconds, static_cast<double>(usage.ru_maxrss) / 1024);
  return 0;
}

}  // namespace
}  // namespace autonotify::host

int main(int argc, char** argv) {
  return argc == 3 ? autonotify::host::run(std::atoi(argv[1]), argv[2]) : 2;
}
