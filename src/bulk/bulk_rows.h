#pragma once

#include "bulk/bulk_choice.h"

namespace autonotify {

/// A row of the first page of the bulk scheduler. What its label names, what a click on its box
/// chooses and what it is ticked for when the window opens are three orders, which differ; hosts
/// know them so.
struct BulkRow {
  Id labelled;  ///< a `TotalNum`
  TaskFamily chosen;
  TaskFamily tickedFor;
};

namespace detail {
using enum TaskFamily;
inline constexpr std::array<BulkRow, taskFamilyCount> bulkRows{{
    {114, GST, GST},
    {101, PST, PST},
    {102, PayrollRemitt, PayrollRemitt},
    {112, EmployeePayroll, EmployeePayroll},
    {103, YearEnd, WSIB},
    {110, CorpTax, EHT},
    {104, WSIB, YearEnd},
    {105, EHT, CorpTax},
    {106, Law, Law},
    {107, Other, Other},
    {108, Custom, Custom},
    {109, Projects, Projects},
    {111, Bookkeeping, Bookkeeping},
    {113, FederalPayroll, FederalPayroll},
}};
}  // namespace detail
using detail::bulkRows;

}  // namespace autonotify
