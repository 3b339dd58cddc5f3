// Helpers of the contact summary tests: the practice rows of a contact with every section of its
// summary filled, the expected summaries kept in tests/addresses/data, and a split of an RTF
// text into its lines so that a difference shows piece by piece.
#pragma once

#include <string>
#include <vector>

#include "practice_fixture.h"

namespace nvwm::testing {

// Companies 2 (Maple Leaf Bakery Inc., with a CompaniesNotes row) and 3 (Northern Pines Lumber
// Ltd., with one), the categories 1 and 2, the labels of CustomAddressFields, and contact 101,
// Ann Brown: every summary column filled, linked to company 2 as its default and to company 3,
// in category 2, with a ContactsNotes row holding two lines of notes.
void addFullContact(PracticeFixture& f);
// The contents of a file of tests/addresses/data, byte for byte.
std::string readSummaryData(const std::string& name);
// The text cut at each "\r\n" (the pieces of a summary are lines).
std::vector<std::string> summaryLines(const std::string& rtf);

}  // namespace nvwm::testing
