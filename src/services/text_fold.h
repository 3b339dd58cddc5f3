// Internal: Unicode case folding for the stand-ins' case-insensitive keys.
//
// One small helper on ICU so that the ID list and the file utility can compare text without
// regard to case. The runtime's text functions carry the general case-insensitive search; this
// only produces a folded key to hash or compare.
#pragma once

#include <string>
#include <string_view>

namespace nvwm::services {

// The text with every code point replaced by its simple case folding ("SOCIÉTÉ" and "Société"
// give the same key). ASCII takes a fast path. An invalid UTF-8 byte becomes U+FFFD, so two
// different invalid texts may share a key; valid text never collides with another valid text
// unless they differ only in case.
std::string foldCase(std::string_view text);

}  // namespace nvwm::services
