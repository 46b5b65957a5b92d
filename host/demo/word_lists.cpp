#include "host/demo/word_lists.h"

namespace autonotify::host::demo {

namespace {

constexpr FirstName first[] = {
    {"Anna", true, false},     {"Margaret", true, false}, {"Priya", true, false},
    {"Susan", true, false},    {"Grace", true, false},    {"Linda", true, false},
    {"Mei", true, false},      {"Olivia", true, false},   {"Fatima", true, false},
    {"Émilie", true, true},    {"Hélène", true, true},    {"Geneviève", true, true},
    {"Chloé", true, true},     {"Noémie", true, true},    {"Anaïs", true, true},
    {"James", false, false},   {"Robert", false, false},  {"Arjun", false, false},
    {"William", false, false}, {"David", false, false},   {"Wei", false, false},
    {"Samuel", false, false},  {"Omar", false, false},    {"Patrick", false, false},
    {"François", false, true}, {"Jérôme", false, true},   {"André", false, true},
    {"Benoît", false, true},   {"Zoël", false, true},     {"Étienne", false, true},
};

constexpr std::string_view middle[] = {"",     "",    "",      "",     "",    "",
                                       "Jane", "Lee", "Marie", "Paul", "René"};

constexpr std::string_view lastEnglish[] = {
    "Lee",     "Carter",   "O'Brien",      "MacDonald", "Singh",    "Patel",   "Nguyen",
    "D'Amico", "Thompson", "Wright",       "Campbell",  "Kowalski", "Murphy",  "O'Connor",
    "Chen",    "Fraser",   "St. Clair",    "Hughes",    "Brown",    "Hassan",  "Williams",
    "Schmidt", "Novák",    "Müller-Jones", "Robertson", "Olsen",    "Peralta", "Sørensen"};

constexpr std::string_view lastFrench[] = {
    "Gagné",    "Côté",   "Bélanger", "Lévesque",   "Tremblay",   "L'Heureux",  "D'Aoust",
    "Théberge", "Hébert", "Brûlé",    "Desrosiers", "St-Amour",   "Lefrançois", "Ménard",
    "Gélinas",  "Roy",    "Giguère",  "Prévost",    "Beauséjour", "Lachaîne"};

constexpr std::string_view streetsEnglish[] = {
    "Maple Avenue",    "King Street West", "Queen's Road",   "Mill Street",
    "Lakeshore Drive", "Elm Crescent",     "Victoria Lane",  "Station Road",
    "Hillside Court",  "Church Street",    "Wellington Row", "Third Line"};

constexpr std::string_view streetsFrench[] = {
    "rue des Érables",   "boulevard de l'Église", "rue Saint-Étienne",  "avenue du Marché",
    "chemin de la Côte", "rue Principale",        "rue de l'Hôtel-Dieu"};

constexpr Industry industry[] = {
    {"Construction", "Plumbing"},
    {"Construction", "Roofing"},
    {"Retail", "Books"},
    {"Food services", "Bakery"},
    {"Transportation", "Freight"},
    {"Manufacturing", "Machine Works"},
    {"Agriculture", "Orchards"},
    {"Health care", "Dental Care"},
    {"Professional services", "Design"},
    {"Legal services", "Law"},
    {"Technology", "Software"},
    {"Real estate", "Properties"},
    {"Personal services", "Hair Studio"},
    {"Tourism", "Outfitters"},
};

constexpr std::string_view places[] = {"Maple Ridge", "Northern",   "Harbour View", "Red Barn",
                                       "Capital",     "Two Rivers", "Evergreen",    "Stone Bridge",
                                       "Bluewater",   "Pioneer",    "Old Mill",     "Summit",
                                       "Grand-Mère",  "Bon-Secours"};

constexpr std::string_view endings[] = {"Ltd.",        "Inc.",       "Corp.",
                                        "& Sons Ltd.", "Group Inc.", "Limited"};

constexpr std::string_view awkward[] = {
    "Studio #9 Dance Inc.",        "O'Malley's Pub & Grill",   "\"Chez Léo\" Restaurant Ltée",
    "D'Arcy & D'Arcy, Barristers", "Pâtisserie L'Étoile Inc.", "Unit #4 / Storage (2011) Ltd.",
    "50% Off Outlet Ltd.",         "Müller {Holdings} Inc.",   "Back\\Slash Computers Inc."};

constexpr std::string_view titles[] = {"President",      "Owner",     "Controller",
                                       "Office Manager", "Treasurer", "Bookkeeper"};

constexpr std::string_view marital[] = {"Married", "Single", "Common-law", "Widowed", "Divorced"};

constexpr Software software[] = {{"LedgerLine Desktop", "12.1", ".ldb"},
                                 {"ClearBooks Ledger", "2025", ".cbk"},
                                 {"Tallywright", "8", ".tly"},
                                 {"Shoebox Plus", "3.4", ".sbx"}};

constexpr Meeting allMeetings[] = {{"Review of draft statements", 60},
                                   {"Tax planning", 45},
                                   {"New payroll system", 90},
                                   {"Bank financing proposal", 60},
                                   {"Signing of the returns", 30},
                                   {"Estate & succession", 120},
                                   {"First meeting", 45}};

constexpr std::string_view timeEntries[] = {"Bookkeeping",    "Preparation of working papers",
                                            "Telephone call", "Review of return",
                                            "Correspondence", "Training on client's software"};

constexpr std::string_view notes[] = {
    "Prefers to be called after 4 pm.",
    "Pays by post-dated cheques.\r\nAsk for the new bank account.",
    "Long-time client; referred two others.",
    "Parle français au téléphone.",
};

}  // namespace

std::span<const FirstName> firstNames() {
  return first;
}
std::span<const std::string_view> middleNames() {
  return middle;
}
std::span<const std::string_view> lastNames(bool french) {
  return french ? std::span<const std::string_view>(lastFrench) : lastEnglish;
}
std::span<const std::string_view> streetNames(bool french) {
  return french ? std::span<const std::string_view>(streetsFrench) : streetsEnglish;
}
std::span<const Industry> industries() {
  return industry;
}
std::span<const std::string_view> placeWords() {
  return places;
}
std::span<const std::string_view> companyEndings() {
  return endings;
}
std::span<const std::string_view> awkwardCompanyNames() {
  return awkward;
}
std::span<const std::string_view> jobTitles() {
  return titles;
}
std::span<const std::string_view> maritalStatuses() {
  return marital;
}
std::span<const Software> softwarePackages() {
  return software;
}
std::span<const Meeting> meetings() {
  return allMeetings;
}
std::span<const std::string_view> timeEntrySubjects() {
  return timeEntries;
}
std::span<const std::string_view> clientNotes() {
  return notes;
}

}  // namespace autonotify::host::demo
