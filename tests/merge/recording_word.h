// A word processor for the merge tests: the document engine's, with every call the library
// makes on it written to a log, in order.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/word.h"

namespace nvwm::testing {

// The calls, as "Documents.Add", "Documents.Open(letter.docx)", "Document.Activate",
// "Application.Selection", "MailMerge.OpenDataSource(Name=<file name>, ReadOnly=True,
// LinkToSource=True, Connection=TABLE WordMergeTable)", "MailMerge.State",
// "MailMerge.Execute", "Document.Close(0, 1, False)", "Application.Visible(True)",
// "Document.PrintOut", "Document.SaveAs(<file name>)", "Selection.InsertDateTime(<format>,
// False)", "NormalTemplate.Saved(True)", "Application.Quit", "Application.Version".
// Arguments left out are not written; file paths are written as their file names.
struct WordCallLog {
  std::vector<std::string> calls;
  // How many calls start with the text.
  int count(const std::string& prefix) const;
};

std::shared_ptr<word::Application> recordingWord(std::shared_ptr<word::Application> inner,
                                                 std::shared_ptr<WordCallLog> log);

}  // namespace nvwm::testing
