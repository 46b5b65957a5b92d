// rtf_to_text FILE           prints the plain text of an RTF file
// rtf_to_text --rewrite FILE prints the file as it is read and written again
// rtf_to_text --times FILE   prints the milliseconds of a copy, of the plain text, of reading with
//                            formats and of writing, each the best of five
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <string>
#include <string_view>
#include <vector>

#include "platform/rich_text.h"
#include "platform/richtext/RichText.h"

namespace {

using namespace autonotify;

/// The processor's time, which a busy machine disturbs least.
template <class Work>
double bestMilliseconds(Work&& work) {
  std::clock_t best = 0;
  for (int round = 0; round < 5; ++round) {
    const std::clock_t start = std::clock();
    work();
    const std::clock_t taken = std::clock() - start;
    best = round == 0 ? taken : std::min(best, taken);
  }
  return static_cast<double>(best) * 1000 / CLOCKS_PER_SEC;
}

void printTimes(std::string_view rtf) {
  const RichText text = readRichText(rtf);
  std::vector<char> copy(rtf.size());
  std::size_t kept = 0;
  const double copying = bestMilliseconds([&] {
    std::memcpy(copy.data(), rtf.data(), rtf.size());
    kept += static_cast<unsigned char>(copy[kept % copy.size()]);
  });
  const double plain = bestMilliseconds([&] { kept += plainTextOf(rtf).size(); });
  const double reading = bestMilliseconds([&] { kept += readRichText(rtf).paragraphs.size(); });
  const double writing = bestMilliseconds([&] { kept += writeRichText(text).size(); });
  std::printf("%.3f %.3f %.3f %.3f\n", copying, plain, reading, writing);
  if (kept == 0) std::puts("nothing was read");
}

/// A file in memory, as the system holds it already.
class MappedFile {
 public:
  explicit MappedFile(const char* path) : file_(open(path, O_RDONLY)) {
    struct stat status {};
    if (file_ < 0 || fstat(file_, &status) != 0 || status.st_size == 0) return;
    size_ = static_cast<std::size_t>(status.st_size);
    start_ = mmap(nullptr, size_, PROT_READ, MAP_PRIVATE | MAP_POPULATE, file_, 0);
  }
  ~MappedFile() {
    if (isOpen()) munmap(start_, size_);
    if (file_ >= 0) close(file_);
  }
  MappedFile(const MappedFile&) = delete;
  MappedFile& operator=(const MappedFile&) = delete;

  bool isOpen() const { return start_ != MAP_FAILED; }
  std::string_view content() const { return {static_cast<const char*>(start_), size_}; }

 private:
  int file_;
  std::size_t size_ = 0;
  void* start_ = MAP_FAILED;
};

}  // namespace

int main(int count, char** arguments) {
  const std::string_view option = count == 3 ? arguments[1] : "";
  const bool isKnown = option.empty() || option == "--rewrite" || option == "--times";
  const MappedFile file(count > 1 ? arguments[count - 1] : "");
  if (!isKnown || !file.isOpen()) {
    std::fputs("usage: rtf_to_text [--rewrite | --times] FILE\n", stderr);
    return 2;
  }
  const std::string_view rtf = file.content();
  if (option == "--times") {
    printTimes(rtf);
    return 0;
  }
  const std::string shown = option.empty() ? plainTextOf(rtf) : writeRichText(readRichText(rtf));
  std::fwrite(shown.data(), 1, shown.size(), stdout);
}
