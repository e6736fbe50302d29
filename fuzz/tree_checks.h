// Compares the elements of the library with those of the model, whose twins they are.
#pragma once

#include "xml/model/model_element.h"

namespace oxa_fuzz {

using oxa_test::model::Element;

// The arguments of a query; each may be null.
struct Query {
  const char* name;
  const char* key;
  const char* value;
};

// Tells whether a document with this root, once written and parsed, has a tree that is written the
// same way.
bool writes_itself(const Element& root);

// Check that the twin of an element is like it, and that its whole subtree is.
void check_element(const Element& element);
void check_tree(const Element& element);

// Make every kind of query on both, and compare what they give. They do not compare what they leave
// in the tree.
void check_queries(Element& element, const Query& query);
void check_get_child(Element& element, const char* id);

// Checks what `dump` writes.
void check_dump(const Element& element, int level);

}  // namespace oxa_fuzz
