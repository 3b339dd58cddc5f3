// Internal: the private routines and state of clsWordMerge, for the library's tests.
#pragma once

#include <memory>
#include <string>

#include "merge/cls_word_merge.h"

namespace nvwm {

class clsWordMergeInternal {
 public:
  static bool useIDListValues(clsWordMerge& m) { return m.useIDListValues(); }
  static bool connectToRemittRST(clsWordMerge& m) { return m.connectToRemittRST(); }
  static bool isRemittRSTConnected(clsWordMerge& m, bool& showMessage) {
    return m.isRemittRSTConnected(showMessage);
  }
  static bool createMergeDatabaseAndQuery(clsWordMerge& m) {
    return m.createMergeDatabaseAndQuery();
  }
  static void deleteOldMergeDatabases(clsWordMerge& m) { m.deleteOldMergeDatabases(); }

  static Handle baseRecordsetHandle(const clsWordMerge& m) { return m.baseRecordsetHandle_; }
  static Handle filteredRecordsetHandle(const clsWordMerge& m) {
    return m.filteredRecordsetHandle_;
  }
  static bool wordIsOpen(const clsWordMerge& m) { return m.wordIsOpen_; }
  static const std::string& mergeConnectionText(const clsWordMerge& m) {
    return m.mergeConnectionText_;
  }
  // The list getValidFieldName records columns in; it stands only during a run.
  static void fieldNameList(clsWordMerge& m, std::shared_ptr<IDList> list) {
    m.fieldNameList_ = std::move(list);
  }
  static const std::shared_ptr<IDList>& fieldNameList(const clsWordMerge& m) {
    return m.fieldNameList_;
  }
  static const std::shared_ptr<word::Application>& wordApplication(const clsWordMerge& m) {
    return m.wordApplication_;
  }
  static const std::shared_ptr<word::Document>& wordDocument(const clsWordMerge& m) {
    return m.wordDocument_;
  }
};

}  // namespace nvwm
