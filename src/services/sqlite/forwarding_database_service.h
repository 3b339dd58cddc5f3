// Public: a DatabaseService that hands every call to another one.
//
// Subclass it to watch or disturb the traffic between the library and the database: override
// one operation, or `beforeCall`, which runs before every forwarded call with the operation's
// name (a test double raises there to fail the Nth call). Holds a shared reference to the
// target; not thread-safe, as the target isn't.
#pragma once

#include <memory>
#include <string>

#include "host/database_service.h"

namespace nvwm {

class ForwardingDatabaseService : public DatabaseService {
 public:
  // REQUIRES: target is not null.
  explicit ForwardingDatabaseService(std::shared_ptr<DatabaseService> target)
      : target_(std::move(target)) {}

  int32_t getRecordCount(Handle h) override {
    beforeCall("getRecordCount");
    return target_->getRecordCount(h);
  }
  bool isEmptyRecordset(Handle h) override {
    beforeCall("isEmptyRecordset");
    return target_->isEmptyRecordset(h);
  }
  bool isRecordsetOpen(Handle h) override {
    beforeCall("isRecordsetOpen");
    return target_->isRecordsetOpen(h);
  }
  bool isEOF(Handle h) override {
    beforeCall("isEOF");
    return target_->isEOF(h);
  }
  bool isConnected() override {
    beforeCall("isConnected");
    return target_->isConnected();
  }
  Handle openRecordset(const std::string& sql, int32_t cursorType, int32_t lockType,
                       bool option1 = true, const std::string& option2 = "",
                       bool option3 = true) override {
    beforeCall("openRecordset");
    return target_->openRecordset(sql, cursorType, lockType, option1, option2, option3);
  }
  void closeRecordset(Handle h) override {
    beforeCall("closeRecordset");
    target_->closeRecordset(h);
  }
  int32_t getRecordPosition(Handle h) override {
    beforeCall("getRecordPosition");
    return target_->getRecordPosition(h);
  }
  int32_t setRecordPosition(Handle h, int32_t position) override {
    beforeCall("setRecordPosition");
    return target_->setRecordPosition(h, position);
  }
  bool hasRecords(Handle h) override {
    beforeCall("hasRecords");
    return target_->hasRecords(h);
  }
  void moveNext(Handle h) override {
    beforeCall("moveNext");
    target_->moveNext(h);
  }
  Variant getField(Handle h, const Variant& fieldName) override {
    beforeCall("getField");
    return target_->getField(h, fieldName);
  }
  void setField(Handle h, const std::string& fieldName, const std::string& value,
                const std::string& option1 = "", bool option2 = false) override {
    beforeCall("setField");
    target_->setField(h, fieldName, value, option1, option2);
  }
  void addNewRecord(Handle h) override {
    beforeCall("addNewRecord");
    target_->addNewRecord(h);
  }
  void setNewField(Handle h, const std::string& fieldName, const Variant& value) override {
    beforeCall("setNewField");
    target_->setNewField(h, fieldName, value);
  }
  void updateRecord(Handle h) override {
    beforeCall("updateRecord");
    target_->updateRecord(h);
  }
  bool findRecord(Handle h, const std::string& fieldName, const Variant& value) override {
    beforeCall("findRecord");
    return target_->findRecord(h, fieldName, value);
  }
  Handle filterRecordset(Handle h, const std::string& filter) override {
    beforeCall("filterRecordset");
    return target_->filterRecordset(h, filter);
  }
  std::string getSQLDateString(const Date& date) override {
    beforeCall("getSQLDateString");
    return target_->getSQLDateString(date);
  }

  DatabaseService& target() { return *target_; }

 protected:
  // Runs before every forwarded call; does nothing here.
  virtual void beforeCall(const char* /*operation*/) {}

 private:
  std::shared_ptr<DatabaseService> target_;
};

}  // namespace nvwm
