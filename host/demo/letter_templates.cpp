#include <array>

#include "host/demo/demo_schedule_kinds.h"

namespace autonotify::host::demo {

namespace {

// Each line is a paragraph of rich text. «Your ...» fields stand on lines of their own: they are
// filled only where the merge knows the firm.
constexpr std::string_view heading[] = {
    R"(\b \'abCompany Name\'bb\b0)",
    R"(\'abAddress\'bb)",
    R"(\'abCity\'bb \'ab{province}\'bb  \'ab{postalCode}\'bb)",
    "",
    R"(\'ab(Todays Date, mmmm d, yyyy)\'bb)",
    "",
    R"(Dear \'abContact Display Name\'bb,)",
    "",
};

constexpr std::string_view personalHeading[] = {
    R"(\'abContact & Spouse Name\'bb)",
    R"(\'abContact Home Address\'bb)",
    R"(\'abContact Home City\'bb \'abContact Home {province}\'bb  \'abContact Home {postalCode}\'bb)",
    "",
    R"(\'ab(Todays Date, mmmm d, yyyy)\'bb)",
    "",
    R"(Dear \'abContact First Name\'bb,)",
    "",
};

constexpr std::string_view closing[] = {
    "",
    R"(If you have already sent us everything, please disregard this letter. Call us at any time if you have questions.)",
    "",
    "Yours truly,",
    "",
    R"(\'abEmployee Assigned\'bb)",
    R"(\'abYour Company Name\'bb)",
    R"(\'abYour Office Number\'bb)",
};

/// The list of what the client is to send or bring.
constexpr std::string_view documents = R"(\'abClient Documents & Instructions\'bb)";

constexpr std::string_view salesTax[] = {
    R"(Your \b \'abTask Name\'bb\b0  for \'abPeriod Description\'bb is due on \'ab(Task Due Date, dddd, mmmm d yyyy)\'bb. Your registration number is \'ab{taxNumber}\'bb.)",
    "",
    R"(To file in time we plan to finish by \'ab(Task in-House Due Date, mmmm d, yyyy)\'bb. Please let us have the following by \'ab(Task Client Info Deadline Date, dddd, mmmm d yyyy)\'bb:)",
    documents,
};

constexpr std::string_view provincialTax[] = {
    R"(Your \b \'abTask Name\'bb\b0  for \'abPeriod Description\'bb is due on \'ab(Task Due Date, dddd, mmmm d yyyy)\'bb, under number \'ab{salesTaxNumber}\'bb. By \'ab(Task Client Info Deadline Date, mmmm d, yyyy)\'bb we need:)",
    documents,
};

constexpr std::string_view payroll[] = {
    R"(It is time to prepare your \b \'abTask Name\'bb\b0 . The period ends on \'ab(Period End Date, mmmm d, yyyy)\'bb and the filing is due on \'ab(Task Due Date, dddd, mmmm d yyyy)\'bb.)",
    "",
    R"(Our records show \'ab{businessNumber}\'bb as your number with the {authority}. Please send us:)",
    documents,
};

constexpr std::string_view yearEnd[] = {
    R"(We are pleased to start work on your \b \'abTask Name\'bb\b0  for the year ended \'ab(Period End Date, mmmm d, yyyy)\'bb.)",
    "",
    R"(\'abManaging Accountant\'bb will manage the engagement and \'abSupervising Partner\'bb will review it. We keep your file at \'abFile Location\'bb. You use \'abSoftware Name\'bb \'abSoftware Version\'bb: a backup of its data file (\'abData File Saved As\'bb) is all that we need from it.)",
    "",
    R"(Please bring us by \'ab(Task Client Info Deadline Date, mmmm d, yyyy)\'bb:)",
    documents,
    "",
    R"(We reach you at \'abOffice Number\'bb, by fax at \'abFax Number\'bb or by email at \'abEmail\'bb. Tell us if any of these has changed.)",
};

constexpr std::string_view corporateTax[] = {
    R"(The \b \'abTask Name\'bb\b0  of \'abCorporate Name\'bb must reach the {authority} by \'ab(Task Due Date, dddd, mmmm d yyyy)\'bb. Your number is \'ab{businessNumber}\'bb.)",
    "",
    R"(Any balance owing is \i due earlier than the return\i0 . Please call \'abEmployee Assigned\'bb before \'ab(Task in-House Due Date, mmmm d, yyyy)\'bb and have ready:)",
    documents,
};

constexpr std::string_view safety[] = {
    R"(The {safety} asks for your \b \'abTask Name\'bb\b0  by \'ab(Task Due Date, mmmm d, yyyy)\'bb. Your number there is \'ab{safetyNumber}\'bb.)",
    documents,
};

constexpr std::string_view legal[] = {
    R"(Your \b \'abTask Name\'bb\b0  to the {lawSociety} for \'abTask Year\'bb is due on \'ab(Task Due Date, dddd, mmmm d yyyy)\'bb. The trust reconciliations must be on file before we can sign.)",
    documents,
};

constexpr std::string_view personalTax[] = {
    R"(Your \b \'abTask Name\'bb\b0  for \'abPeriod Description\'bb is due on \'ab(Task Due Date, dddd, mmmm d yyyy)\'bb. So that nobody has to wait in April, please let us have your papers by \'ab(Task Client Info Deadline Date, mmmm d, yyyy)\'bb:)",
    documents,
    "",
    R"(We have your email as \'abContact Personal Email\'bb and your telephone as \'abContact Personal Phone\'bb. Your marital status in our file is: \'abContact Marital Status\'bb.)",
    "",
    R"(Fran\'e7ais: nous pr\'e9parons volontiers votre d\'e9claration en fran\'e7ais.)",
};

constexpr std::string_view meeting[] = {
    R"(The \b \'abTask Name\'bb\b0  of \'abCorporate Name\'bb should be signed by \'ab(Task Due Date, mmmm d, yyyy)\'bb. We will prepare them from last year's minute book.)",
    documents,
};

constexpr std::string_view project[] = {
    R"(We have set aside \'abEstimated Time\'bb for your \b \'abTask Name\'bb\b0 , to be completed by \'ab(Task Due Date, dddd, mmmm d yyyy)\'bb. It looks at the time up to \'ab(Period End Date, mmm d yyyy)\'bb.)",
    documents,
};

constexpr std::string_view bookkeeping[] = {
    R"(Our bookkeeper is ready for \b \'abTask Name\'bb\b0  (\'abPeriod Description\'bb). Please drop off by \'ab(Task Due Date, mmmm d, yyyy)\'bb:)",
    documents,
};

constexpr std::string_view general[] = {
    R"(This is a friendly word about \b \'abTask Name\'bb\b0 , dated \'ab(Task Due Date, mmmm d, yyyy)\'bb.)",
    documents,
};

using Lines = std::span<const std::string_view>;

// By Letter.
const std::array<Lines, static_cast<std::size_t>(Letter::count)> bodies{
    salesTax, provincialTax, payroll, yearEnd, corporateTax, safety,
    legal,    personalTax,   meeting, project, bookkeeping,  general};

}  // namespace

std::string letterTemplate(Letter letter, const Region& region) {
  const Lines head = letter == Letter::personalTax ? Lines(personalHeading) : Lines(heading);
  std::string text =
      "{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang1033{\\fonttbl{\\f0\\fswiss\\fcharset0 "
      "Arial;}}\r\n"
      "\\viewkind4\\uc1\\pard\\f0\\fs20 ";
  std::string_view separator;
  for (Lines part : {head, bodies[static_cast<std::size_t>(letter)], Lines(closing)})
    for (std::string_view line : part) {
      text += separator;
      text += inRegion(line, region);
      separator = "\r\n\\par ";
    }
  return text += "\r\n\\par\r\n}";
}

}  // namespace autonotify::host::demo
