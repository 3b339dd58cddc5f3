// A practice for the default-contact tests: company 5 with its notes row and stale copies of a
// default contact, three contacts with every copied column filled, and what the tests read back.
#pragma once

#include <memory>
#include <string>

#include "practice_fixture.h"
#include "services/message_pumps.h"

namespace nvwm::testing {

class DefaultContactsFixture : public PracticeFixture {
 public:
  // Company 5 (Cataraqui Marine Services, copies "stale"), company 6 (no notes row), contacts
  // 11 Ann Brown, 12 Bob Chen, 13 Cy Dube with notes rows, a labelled row in CustomFields (no
  // lookup-type field) and in CustomAddressFields, the firm's locale (Canada, Ontario) and a
  // counting message pump.
  DefaultContactsFixture();

  // Links of a company: "contact:flag" in row order, flags as stored ("1", "0", "NULL").
  std::string marks(int companyID);
  // The four copies on the company row, joined with "|", "NULL" for a Null.
  std::string copies(int companyID);
  std::string companySummary(int companyID);
  // Times a routine of modDatabaseFunctions entered the trace.
  int entered(const std::string& routine);
  // Adds links to company 5: "(contact, flag), ..." as SQL values.
  void link5(const std::string& values);

  std::shared_ptr<CountingMessagePump> pump = std::make_shared<CountingMessagePump>();
};

}  // namespace nvwm::testing
