// Public: the file and path helpers on POSIX paths (host/utilities.h FileUtility).
#pragma once

#include <string>

#include "host/utilities.h"

namespace nvwm {

// Paths are POSIX: '/' separates components and a backslash is an ordinary character.
// The queries (folderExists, fileExists) never raise; they answer False for "" and for a path
// they cannot look at. Stateless and thread-safe.
class PosixFileUtility : public FileUtility {
 public:
  bool folderExists(const std::string& folder) override;
  // True for any existing entry, folders included.
  bool fileExists(const std::string& path) override;
  // The last component without its last extension: "a/WordMergeSource1.db" gives
  // "WordMergeSource1", "x.tar.gz" gives "x.tar", "x.db-journal" gives "x", ".profile" stays.
  std::string getFileTitle(const std::string& fileName) override;
  // The last component, trailing separators ignored: "/a/b/" gives "b"; "/" gives "".
  std::string getFileNameOfPath(const std::string& path) override;
  // All but the last component, without a trailing separator unless it is the root:
  // "/a/b/c.db" gives "/a/b", "/c.db" gives "/", "c.db" gives "".
  std::string getFolderOfPath(const std::string& path) override;
  // The given folder and extension with a name made of the given title and the lowest number
  // from 1 whose title no entry of the folder carries yet (compared without regard to case):
  // ".../Temp/WordMergeSource.db" gives ".../Temp/WordMergeSource1.db", then
  // "WordMergeSource2.db" once "WordMergeSource1.db" or a companion such as
  // "WordMergeSource1.db-journal" exists. The result is never an existing path, and no file of
  // the same title exists beside it (a leftover journal would otherwise be taken for the new
  // database's). Nothing is created: two processes racing may pick the same name. A folder that
  // doesn't exist yet gives number 1.
  std::string makeUniqueFilePath(const std::string& path) override;
  // Creates the folder and its parents; an existing folder and "" are left as they are.
  // Raises 76 when it cannot be made (a file in the way, no permission...).
  void ensureFolderExists(const std::string& folder) override;
  // The folder ending in exactly one '/': "/a/b" and "/a/b//" give "/a/b/". "" stays "" (the
  // current folder, never the root).
  std::string withTrailingSeparator(const std::string& folder) override;
};

}  // namespace nvwm
