// Internal: walking a pugixml tree in document order without recursion, so that no nesting
// depth a document can have runs the stack out.
#pragma once

#include <cstring>
#include <pugixml.hpp>

namespace nvwm::docx {

// True when the node's qualified name is `name` ("w:p"). Elements are recognised under the
// prefixes word processors write ("w:", "wp:", "mc:"...), not by namespace.
inline bool named(pugi::xml_node n, const char* name) { return std::strcmp(n.name(), name) == 0; }

// Visits the descendants of root (not root) in document order. enter(node) is called on the
// way down and returns whether to go into the node's children; leave(node) is called for every
// entered node once its children (if any were visited) are done.
template <class Enter, class Leave>
void traverse(pugi::xml_node root, Enter&& enter, Leave&& leave) {
  pugi::xml_node n = root.first_child();
  while (n) {
    if (enter(n) && n.first_child()) {
      n = n.first_child();
      continue;
    }
    for (;;) {
      leave(n);
      if (pugi::xml_node next = n.next_sibling()) {
        n = next;
        break;
      }
      n = n.parent();
      if (!n || n == root) {
        n = pugi::xml_node();
        break;
      }
    }
  }
}

// The elements under root (not root) in document order.
template <class Visit>
void forEachElement(pugi::xml_node root, Visit&& visit) {
  traverse(
      root,
      [&](pugi::xml_node n) {
        if (n.type() != pugi::node_element) return false;
        visit(n);
        return true;
      },
      [](pugi::xml_node) {});
}

}  // namespace nvwm::docx
