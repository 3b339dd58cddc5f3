// A database service for tests that forwards every call to a real one and records what the
// library asked: the SQL texts sent with their lock types, the handles opened and closed, the
// connection tests. It can also pretend to be disconnected, to check that nothing is sent.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "services/sqlite/forwarding_database_service.h"

namespace nvwm::testing {

class RecordingDatabase : public ForwardingDatabaseService {
 public:
  struct Query {
    std::string sql;
    int32_t cursorType;
    int32_t lockType;
  };

  using ForwardingDatabaseService::ForwardingDatabaseService;

  // False makes isConnected answer False whatever the real service says.
  bool connected = true;
  int isConnectedCalls = 0;
  std::vector<Query> queries;  // every openRecordset, also those that failed
  std::vector<Handle> opened;  // handles that openRecordset returned, in order
  std::vector<Handle> closed;  // handles passed to closeRecordset, in order
  // "open <sql>" and "close <handle>", interleaved in the order they came.
  std::vector<std::string> events;

  // The SQL texts sent, in order.
  std::vector<std::string> sqlSent() const {
    std::vector<std::string> texts;
    for (const Query& q : queries) texts.push_back(q.sql);
    return texts;
  }
  // Handles opened and not closed since.
  std::vector<Handle> stillOpen() const {
    std::vector<Handle> open;
    for (Handle h : opened) {
      bool wasClosed = false;
      for (Handle c : closed) wasClosed = wasClosed || c == h;
      if (!wasClosed) open.push_back(h);
    }
    return open;
  }
  void clear() {
    isConnectedCalls = 0;
    queries.clear();
    opened.clear();
    closed.clear();
    events.clear();
  }

  bool isConnected() override {
    ++isConnectedCalls;
    return ForwardingDatabaseService::isConnected() && connected;
  }
  Handle openRecordset(const std::string& sql, int32_t cursorType, int32_t lockType, bool option1,
                       const std::string& option2, bool option3) override {
    queries.push_back({sql, cursorType, lockType});
    events.push_back("open " + sql);
    Handle h = ForwardingDatabaseService::openRecordset(sql, cursorType, lockType, option1, option2,
                                                        option3);
    opened.push_back(h);
    return h;
  }
  void closeRecordset(Handle h) override {
    closed.push_back(h);
    events.push_back("close " + std::to_string(h));
    ForwardingDatabaseService::closeRecordset(h);
  }
};

}  // namespace nvwm::testing
