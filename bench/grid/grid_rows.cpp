// grid_rows ROWS: fills a grid with the columns that the list of notifications has by default, and
// prints bytes a row, nanoseconds a row, the slowest row and a sort by two keys.
#include <malloc.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <string>

#include "platform/controls/Form.h"
#include "platform/controls/Grid.h"

namespace {

using namespace autonotify;

constexpr int rowsOfOneClient = 20;
constexpr int names = 3000;
constexpr int days = 1000;

class NoScreen : public FormHost {
 public:
  void pumpMessages() override {}
};

std::size_t heapInUse() {
  const struct mallinfo2 memory = mallinfo2();
  return memory.uordblks + memory.hblkhd;
}

/// Of the processor, which a busy machine disturbs least.
double millisecondsSince(std::clock_t start) {
  return static_cast<double>(std::clock() - start) * 1000 / CLOCKS_PER_SEC;
}

void putBoth(Grid& grid, int row, int column, const CellValue& text, const CellValue& sortValue) {
  grid.put_CellText(row, column, text);
  grid.put_CellSortValue(row, column, sortValue);
}

void putDate(Grid& grid, int row, int column, int day) {
  const auto twoDigits = [](int number) {
    return (number < 10 ? "0" : "") + std::to_string(number);
  };
  const std::string year = std::to_string(2024 + day / 336);
  const int month = day / 28 % 12 + 1;
  putBoth(grid, row, column, "Apr " + std::to_string(day % 28 + 1) + ", " + year,
          year + "/" + twoDigits(month) + "/" + twoDigits(day % 28 + 1));
}

void fillRow(Grid& grid, int number) {
  static constexpr const char* channels[] = {"Email", "Fax", "Letter", "Phone"};
  static constexpr const char* states[] = {"Pending Send", "Sent", "Send Cancelled"};
  const int row = grid.AddItem();
  const int client = number * 7919 % std::max(number / rowsOfOneClient, 1);
  const bool isSent = number % 2 != 0;
  for (const auto& [column, id] : {std::pair{0, number}, {1, client}, {2, -1}, {3, number / 2}})
    putBoth(grid, row, column, Id{id}, Id{id});
  if (number % 10 == 0) putBoth(grid, row, 5, Id{number / 10}, Id{number / 10});
  const std::string clientName = "Client Company " + std::to_string(client) + " Limited";
  const std::string clientId = "CLI" + std::to_string(client);
  const std::string name = "Personal Tax Return " + std::to_string(number % names);
  putBoth(grid, row, 8, clientId, clientId);
  putBoth(grid, row, 9, clientName, clientName);
  putBoth(grid, row, 10, name, name);
  putBoth(grid, row, 11, channels[number % 4], Id{1 << number % 4});
  putDate(grid, row, 12, number * 31 % days);
  grid.put_cellChecked(row, 18, isSent);
  grid.put_CellSortValue(row, 18, Id{isSent ? -1 : 0});
  putBoth(grid, row, 19, states[number % 3], Id{number % 3 + 1});
  if (isSent) putDate(grid, row, 20, number * 37 % days);
  for (const auto& [column, text] :
       {std::pair{29, "Send Now"}, {30, "Cancel Send"}, {31, "View Info"}})
    grid.put_CellText(row, column, text);
}

}  // namespace

int main(int count, char** arguments) {
  const int rows = count == 2 ? std::atoi(arguments[1]) : 0;
  if (rows <= 0) {
    std::fputs("usage: grid_rows ROWS\n", stderr);
    return 2;
  }
  NoScreen host;
  Form form(host, "frmGrid");
  Grid grid(form, host, "grid");
  for (int column = 0; column < 32; ++column) grid.AddColumn({"Column", 1000});
  grid.put_Redraw(false);
  const std::size_t before = heapInUse();
  double slowest = 0;
  const std::clock_t start = std::clock();
  for (int row = 0; row < rows; ++row) {
    const std::clock_t rowStart = std::clock();
    fillRow(grid, row);
    slowest = std::max(slowest, millisecondsSince(rowStart));
  }
  const double filling = millisecondsSince(start);
  const double bytes = static_cast<double>(heapInUse() - before);
  const std::clock_t sortStart = std::clock();
  grid.sort({9, sort_order::ascending}, {12, sort_order::descending});
  const double sorting = millisecondsSince(sortStart);
  const std::clock_t clearStart = std::clock();
  grid.ResetAndClearRows();
  std::printf("%.0f bytes a row, %.0f ns a row, slowest row %.1f ms, sort %.0f ms, clear %.1f ms\n",
              bytes / rows, filling * 1e6 / rows, slowest, sorting, millisecondsSince(clearStart));
}
