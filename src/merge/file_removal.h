// Internal: deleting one file for the document commands and the clean-up of old databases.
#pragma once

#include <string>

namespace nvwm::merge {

// Deletes a file, read-only or not. Raises 53 when the path is no file (a folder, nothing) and
// 70 when it can't be deleted. On Linux a file another process has open can be deleted; the
// word processor reads a data source whole when it is linked, so a linked document keeps its
// records.
void deleteFile(const std::string& path);

}  // namespace nvwm::merge
