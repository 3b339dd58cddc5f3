// Public: the limits a .docx must keep to before the document engine unpacks it.
#pragma once

#include <cstdint>

namespace nvwm::docx {

// A zip file says how large each part is once unpacked, and a small file can say anything: a
// 2 KB file may claim 2 GB, a 1 MB zip bomb really unpacks to 1 GB. The engine reads each
// part as a stream, believes no size before it has checked it, and refuses a document (error
// 4198) with a part over maxPartSize, or a part or whole package that unpacks to more than
// maxCompressionRatio times its packed size once past ratioFloor bytes. Ordinary document XML
// packs 5 to 30 times; deflate's ceiling, which only a run of one repeated byte reaches, is
// about 1,030. Value type.
struct ReadLimits {
  uint64_t maxPartSize = uint64_t{256} << 20;  // 256 MB
  uint32_t maxCompressionRatio = 200;
  uint64_t ratioFloor = uint64_t{1} << 20;  // 1 MB: small parts may pack as tight as they like
};

}  // namespace nvwm::docx
