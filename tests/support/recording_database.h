// A database service for tests that forwards every call to a real one and records what the
// library asked: the SQL texts sent with their lock types, the handles opened and closed, the
// connection tests. It can also pretend to be disconnected, to check that nothing is sent.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "host/database_service.h"

namespace nvwm::testing {

class RecordingDatabase : public DatabaseService {
 public:
  struct Query {
    std::string sql;
    int32_t cursorType;
    int32_t lockType;
  };

  explicit RecordingDatabase(std::shared_ptr<DatabaseService> inner) : inner_(std::move(inner)) {}

  // False makes isConnected answer False whatever the real service says.
  bool connected = true;
  int isConnectedCalls = 0;
  std::vector<Query> queries;  // every openRecordset, also those that failed
  std::vector<Handle> opened;  // handles that openRecordset returned, in order
  std::vector<Handle> closed;  // handles passed to closeRecordset, in order

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
  }

  int32_t getRecordCount(Handle h) override { return inner_->getRecordCount(h); }
  bool isEmptyRecordset(Handle h) override { return inner_->isEmptyRecordset(h); }
  bool isRecordsetOpen(Handle h) override { return inner_->isRecordsetOpen(h); }
  bool isEOF(Handle h) override { return inner_->isEOF(h); }
  bool isConnected() override {
    ++isConnectedCalls;
    return connected && inner_->isConnected();
  }
  Handle openRecordset(const std::string& sql, int32_t cursorType, int32_t lockType, bool option1,
                       const std::string& option2, bool option3) override {
    queries.push_back({sql, cursorType, lockType});
    Handle h = inner_->openRecordset(sql, cursorType, lockType, option1, option2, option3);
    opened.push_back(h);
    return h;
  }
  void closeRecordset(Handle h) override {
    closed.push_back(h);
    inner_->closeRecordset(h);
  }
  int32_t getRecordPosition(Handle h) override { return inner_->getRecordPosition(h); }
  int32_t setRecordPosition(Handle h, int32_t position) override {
    return inner_->setRecordPosition(h, position);
  }
  bool hasRecords(Handle h) override { return inner_->hasRecords(h); }
  void moveNext(Handle h) override { inner_->moveNext(h); }
  Variant getField(Handle h, const Variant& fieldName) override {
    return inner_->getField(h, fieldName);
  }
  void setField(Handle h, const std::string& fieldName, const std::string& value,
                const std::string& option1, bool option2) override {
    inner_->setField(h, fieldName, value, option1, option2);
  }
  void addNewRecord(Handle h) override { inner_->addNewRecord(h); }
  void setNewField(Handle h, const std::string& fieldName, const Variant& value) override {
    inner_->setNewField(h, fieldName, value);
  }
  void updateRecord(Handle h) override { inner_->updateRecord(h); }
  bool findRecord(Handle h, const std::string& fieldName, const Variant& value) override {
    return inner_->findRecord(h, fieldName, value);
  }
  Handle filterRecordset(Handle h, const std::string& filter) override {
    return inner_->filterRecordset(h, filter);
  }
  std::string getSQLDateString(const Date& date) override { return inner_->getSQLDateString(date); }

 private:
  std::shared_ptr<DatabaseService> inner_;
};

}  // namespace nvwm::testing
