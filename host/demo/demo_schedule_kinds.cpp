#include "host/demo/demo_schedule_kinds.h"

namespace autonotify::host::demo {

namespace {

constexpr ScheduleFamily families[] = {
    {101, "{tax}", "{tax}"},
    {102, "{salesTax}", "{salesTax}"},
    {103, "Payroll Remittance", "Payroll Remittance"},
    {104, "Year End", "Year End"},
    {105, "Corporate Tax", "Corp. Tax"},
    {106, "{safety}", "{safety}"},
    {107, "{health}", "{health}"},
    {108, "{lawSociety}", "Law"},
    {109, "Other", "Other"},
    {110, "Employee Payroll", "Employee Payroll"},
    {111, "Custom", "Custom"},
    {112, "Federal Payroll", "Federal Payroll"},
    {113, "Projects", "Project"},
    {114, "Bookkeeping", "Bookkeeping"},
};

constexpr ScheduleKind business[] = {
    {101, 1, "Monthly {tax} Return", 10, Letter::salesTax, 1, 0, 1, 31, 5, 1.5},
    {101, 2, "Quarterly {tax} Return", 15, Letter::salesTax, 3, 0, 1, 31, 25, 2},
    {101, 3, "Annual {tax} Return", 20, Letter::salesTax, 12, 0, 3, 31, 60, 2.5},
    {102, 1, "Monthly {salesTax} Return", 10, Letter::provincialTax, 1, 0, 1, 20, 2, 1},
    {102, 2, "Quarterly {salesTax} Return", 15, Letter::provincialTax, 3, 0, 1, 20, 12, 1},
    {103, 1, "Quarterly Payroll Remittance", 5, Letter::payroll, 3, 12, 1, 15, 15, 1},
    {103, 2, "Payroll Year End Reconciliation", 10, Letter::payroll, 12, 12, 1, 31, 10, 3},
    {104, 1, "Year End Financial Statements", 20, Letter::yearEnd, 12, 0, 4, 31, 85, 18},
    {104, 2, "Year End Review Engagement", 25, Letter::yearEnd, 12, 0, 5, 31, 10, 40},
    {105, 1, "{corporateReturn}", 15, Letter::corporateTax, 12, 0, 6, 31, 85, 6},
    {105, 2, "Corporate Tax Instalment", 5, Letter::corporateTax, 3, 0, 1, 31, 8, 0.5},
    {106, 1, "Quarterly {safety} Premium", 10, Letter::safety, 3, 12, 1, 31, 8, 0.75},
    {106, 2, "Annual {safety} Reconciliation", 15, Letter::safety, 12, 12, 3, 31, 20, 1.25},
    {107, 1, "Annual {health} Return", 15, Letter::payroll, 12, 12, 3, 15, 15, 1},
    {108, 1, "{lawSociety} Trust Report", 20, Letter::legal, 12, 12, 3, 31, 4, 8},
    {109, 2, "Annual General Meeting Minutes", 10, Letter::meeting, 12, 0, 5, 15, 30, 1},
    {109, 3, "Trust Income Return", 20, Letter::corporateTax, 12, 12, 3, 30, 4, 5},
    {110, 1, "Quarterly Employee Payroll Review", 5, Letter::payroll, 3, 12, 0, 25, 4, 2},
    {111, 1, "Business Plan Review", 15, Letter::project, 12, 0, 2, 15, 10, 4},
    {111, 2, "Follow-up After Filing", -3, Letter::general, 12, 0, 7, 10, 6, 0.5},
    {112, 1, "{payrollSlips}", 15, Letter::payroll, 12, 12, 2, 28, 45, 2},
    {113, 1, "Accounting System Review", 10, Letter::project, 12, 6, 2, 15, 8, 12},
    {114, 1, "Quarterly Bookkeeping", 0, Letter::bookkeeping, 3, 0, 1, 20, 6, 6},
    {fallbackTotalNum, fallbackScheduleNum, "General Reminder", 15, Letter::general, 0, 0, 0, 0, 0,
     1},
};

constexpr ScheduleKind personal[] = {
    {109, 1, "{personalReturn}", 20, Letter::personalTax, 12, 12, 4, 30, 100, 2},
    {109, 4, "Personal Tax Instalment", 5, Letter::personalTax, 3, 12, 3, 15, 6, 0.25},
};

constexpr DocumentLine demandedDocuments[] = {
    {Letter::salesTax, 2, "Sales journal for the period"},
    {Letter::salesTax, 2, "Purchase invoices over $500"},
    {Letter::salesTax, 1, "Please tell us of any change in your rates"},
    {Letter::provincialTax, 2, "Sales journal, taxable and exempt"},
    {Letter::provincialTax, 2, "Exemption certificates"},
    {Letter::payroll, 2, "Payroll register"},
    {Letter::payroll, 2, "List of new and departed employees"},
    {Letter::payroll, 1, "Check the social numbers of new staff"},
    {Letter::yearEnd, 2, "Bank statements and cancelled cheques"},
    {Letter::yearEnd, 2, "Inventory count, signed & dated"},
    {Letter::yearEnd, 2, "Loan and lease agreements"},
    {Letter::yearEnd, 2, "Accounts receivable list, \"aged\""},
    {Letter::yearEnd, 1, "Back up your accounting file before you send it"},
    {Letter::corporateTax, 2, "Notice of assessment for last year"},
    {Letter::corporateTax, 2, "Instalment receipts"},
    {Letter::corporateTax, 1, "Sign the authorization form and return it"},
    {Letter::safety, 2, "Payroll by rate group"},
    {Letter::safety, 1, "Report any accident since the last filing"},
    {Letter::legal, 2, "Trust bank reconciliations"},
    {Letter::legal, 2, "List of open client ledgers"},
    {Letter::personalTax, 2, "Employment slips"},
    {Letter::personalTax, 2, "Medical and donation receipts"},
    {Letter::personalTax, 2, "Tuition certificates"},
    {Letter::personalTax, 1, "Complete the questionnaire on both sides"},
    {Letter::meeting, 2, "Signed resolutions of the last meeting"},
    {Letter::meeting, 1, "Confirm the names of directors & officers"},
    {Letter::project, 2, "Current budget"},
    {Letter::project, 1, "Write down the three questions that matter most"},
    {Letter::bookkeeping, 2, "Deposit books and cheque stubs"},
    {Letter::bookkeeping, 2, "Credit card statements"},
    {Letter::bookkeeping, 1, "Mark personal expenses"},
    {Letter::general, 2, "Any letter that you received since our last meeting"},
};

}  // namespace

std::span<const ScheduleFamily> scheduleFamilies() {
  return families;
}
std::span<const ScheduleKind> businessKinds() {
  return business;
}
std::span<const ScheduleKind> personalKinds() {
  return personal;
}
std::span<const DocumentLine> documentLines() {
  return demandedDocuments;
}

}  // namespace autonotify::host::demo
