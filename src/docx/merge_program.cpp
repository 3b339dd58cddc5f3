#include "docx/merge_program.h"

#include <cassert>

namespace nvwm::docx {

void MergeProgram::closeXml() {
  if (text_.size() > xmlStart_) {
    Op op;
    op.kind = OpKind::kXml;
    op.offset = xmlStart_;
    op.size = text_.size() - xmlStart_;
    ops_.push_back(op);
  }
  xmlStart_ = text_.size();
}

uint32_t MergeProgram::push(OpKind kind, uint32_t index) {
  closeXml();
  Op op;
  op.kind = kind;
  op.index = index;
  ops_.push_back(op);
  return static_cast<uint32_t>(ops_.size() - 1);
}

void MergeProgram::appendField(uint32_t field) { push(OpKind::kField, field); }

uint32_t MergeProgram::beginGroup(uint32_t group) { return push(OpKind::kGroupBegin, group); }

void MergeProgram::endGroup(uint32_t beginOp) {
  // REQUIRES: beginOp is an open group of this program.
  assert(beginOp < ops_.size() && ops_[beginOp].kind == OpKind::kGroupBegin);
  push(OpKind::kGroupEnd, ops_[beginOp].index);
  landHere(beginOp);
}

uint32_t MergeProgram::appendControl(OpKind kind, uint32_t index) { return push(kind, index); }

void MergeProgram::landHere(uint32_t from) {
  // REQUIRES: from is an op of this program.
  assert(from < ops_.size());
  closeXml();
  ops_[from].target = static_cast<uint32_t>(ops_.size());
}

void MergeProgram::appendReference(RefKind kind, std::string_view original) {
  closeXml();
  Op op;
  op.kind = OpKind::kReference;
  op.reference = kind;
  op.offset = text_.size();
  op.size = original.size();
  text_.append(original);
  xmlStart_ = text_.size();
  ops_.push_back(op);
}

void MergeProgram::finish() { closeXml(); }

}  // namespace nvwm::docx
