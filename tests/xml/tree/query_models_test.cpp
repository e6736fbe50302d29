// Every small tree, queried by the library and by the rules written out.
#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "xml/tree/trees.h"

using namespace oxa_test;

namespace {

struct Node {
  std::string name;
  std::vector<std::string> id;  // one, or none
  std::vector<Node> children;
};

std::string shown_node(const Node& node) {
  std::string text = node.name + (node.id.empty() ? "" : "[id=" + node.id.front() + "]");
  const char* before = "(";
  for (const Node& child : node.children) {
    text.append(before).append(shown_node(child));
    before = " ";
  }
  return text + (node.children.empty() ? "" : ")");
}

Element built_from(const Node& node) {
  Element made = element(node.name.c_str());
  for (const std::string& id : node.id) {
    made->AddAttribute("id", id.c_str());
  }
  for (const Node& child : node.children) {
    add(*made, built_from(child));
  }
  return made;
}

// Calls `visit` with every tree of `count` elements below its top, whose ids are none, x and y.
void for_each_tree(std::size_t count, const std::function<void(const Node&)>& visit) {
  std::vector<std::size_t> depths;
  std::vector<int> ids;
  const auto add_below = [&](Node& top) {
    for (std::size_t i = 0; i < depths.size(); ++i) {
      Node* parent = &top;
      for (std::size_t depth = 0; depth < depths[i]; ++depth) {
        parent = &parent->children.back();
      }
      parent->children.push_back({"n" + std::to_string(i), {}, {}});
      if (ids[i] != 0) {
        parent->children.back().id = {ids[i] == 1 ? "x" : "y"};
      }
    }
  };
  const std::function<void()> extend = [&] {
    if (depths.size() == count) {
      Node top{"top", {}, {}};
      add_below(top);
      visit(top);
      return;
    }
    const std::size_t deepest = depths.empty() ? 0 : depths.back() + 1;
    for (std::size_t depth = 0; depth <= deepest; ++depth) {
      for (int id = 0; id < 3; ++id) {
        depths.push_back(depth);
        ids.push_back(id);
        extend();
        depths.pop_back();
        ids.pop_back();
      }
    }
  };
  extend();
}

std::string& id_of(Node& node) {
  if (node.id.empty()) {
    node.id.emplace_back();
  }
  return node.id.front();
}

const Node* get_child(Node& node, const std::string& id) {
  const Node* out = nullptr;
  for (Node& child : node.children) {
    out = id_of(child) == id ? &child : get_child(child, id);
  }
  return out;
}

std::vector<const Node*> children(Node& node, const std::string& id) {
  std::vector<const Node*> found;
  for (Node& child : node.children) {
    if (id_of(child) == id) {
      found.push_back(&child);
    }
    for (const Node* below : children(child, id)) {
      found.push_back(below);
    }
  }
  return found;
}

constexpr std::size_t largest = 5;

TEST(QueryModelTest, GetChildAgreesOnEveryTree) {
  std::size_t trees = 0;
  for (std::size_t count = 0; count <= largest; ++count) {
    for_each_tree(count, [&](const Node& tree) {
      for (const char* id : {"x", ""}) {
        Node expected = tree;
        const Element top = built_from(tree);
        const Node* const found = get_child(expected, id);
        IOXAXMLElement* out = nullptr;
        top->GetChild(id, &out);
        ASSERT_EQ(out == nullptr ? "" : out->Name(), found == nullptr ? "" : found->name);
        ASSERT_EQ(shown(*top), shown_node(expected)) << shown_node(tree);
        ++trees;
      }
    });
  }
  EXPECT_EQ(trees, 2U * (1 + 3 + 2 * 9 + 5 * 27 + 14 * 81 + 42 * 243));
}

TEST(QueryModelTest, ChildrenAgreeOnEveryTree) {
  for (std::size_t count = 0; count <= largest; ++count) {
    for_each_tree(count, [](const Node& tree) {
      Node expected = tree;
      const Element top = built_from(tree);
      std::string found;
      for (const Node* node : children(expected, "x")) {
        found += (found.empty() ? "" : " ") + node->name;
      }
      ASSERT_EQ(names(top->children(nullptr, "id", "x")), found);
      ASSERT_EQ(shown(*top), shown_node(expected)) << shown_node(tree);
    });
  }
}

}  // namespace
