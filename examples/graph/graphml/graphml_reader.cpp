#include "graphml_reader.h"

#include <graph_values.h>
#include <oxa/oxa.h>

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

#include "file_document.h"
#include "file_keys.h"
#include "type_names.h"

namespace graph {
namespace {

constexpr std::size_t items_between_stops = 4096;

// Whether an element belongs to another namespace.
bool is_foreign(IOXAXMLElement& element) {
  return std::string_view(element.Name()).find(':') != std::string_view::npos;
}

bool is(IOXAXMLElement& element, const char* name) {
  return std::string_view(element.Name()) == name;
}

// Whether an id tells nothing: a number with or without an "n" in front.
bool is_number_of_node(std::string_view id) {
  id.remove_prefix(id.substr(0, 1) == "n" ? 1 : 0);
  return !id.empty() &&
         std::all_of(id.begin(), id.end(), [](char c) { return c >= '0' && c <= '9'; });
}

// One file on its way into a graph.
class Reading {
 public:
  Reading(IOXAContext* context, std::string_view text, IGraph& graph)
      : progress_(oxa::service<IOXAProgressIndicator>(context)),
        types_(context),
        file_(context, text),
        graph_(graph) {}

  void run() {
    IOXAXMLElement& element = find_graph();
    FileKeys keys(file_, types_, graph_);
    keys_ = &keys;
    sort_items(element);
    read_data(element, GraphPart::graph, 0);
    add_nodes();
    for (const Node& node : nodes_) {
      stop_now_and_then();
      read_data(*node.element, GraphPart::node, node.number);
    }
    for (IOXAXMLElement* edge : edges_) {
      stop_now_and_then();
      add_edge(*edge);
    }
    keys.finish(graph_);
  }

 private:
  struct Node {
    IOXAXMLElement* element;
    std::string id;
    std::uint64_t number;
  };

  void stop_now_and_then() {
    if (++items_ % items_between_stops == 0) {
      stop_if_asked(progress_.get());
    }
  }

  IOXAXMLElement& find_graph() {
    if (!is(file_.root(), "graphml")) {
      file_.malformed(file_.root(), "begins with <" + std::string(file_.root().Name()) +
                                        ">, where <graphml> is expected; use a GraphML file");
    }
    IOXAXMLElement* found = nullptr;
    for (IOXAXMLElement* child : oxa::children(file_.root())) {
      if (is(*child, "graph")) {
        if (found != nullptr) {
          file_.malformed(*child, "begins a second graph; keep one in a file");
        }
        found = child;
      } else if (!is(*child, "key") && !is(*child, "data") && !is(*child, "desc") &&
                 !is_foreign(*child)) {
        unexpected(*child, file_.root());
      }
    }
    if (found == nullptr) {
      file_.malformed(file_.root(), "begins a file without a graph; add <graph>");
    }
    return *found;
  }

  [[noreturn]] void unexpected(IOXAXMLElement& element, IOXAXMLElement& parent) {
    file_.malformed(element, "has <" + std::string(element.Name()) + "> within <" + parent.Name() +
                                 ">, where GraphML has none; remove it");
  }

  void refuse_text(IOXAXMLElement& element) {
    if (element.hasText()) {
      file_.malformed(element, "has a text within <" + std::string(element.Name()) +
                                   ">, where GraphML has none; put it into <data>");
    }
  }

  void sort_items(IOXAXMLElement& element) {
    const std::string directions =
        FileDocument::value(element, "edgedefault").value_or("undirected");
    directed_ = directions == "directed";
    if (!directed_ && directions != "undirected") {
      file_.malformed(element, "has the edgedefault " + quoted(directions) +
                                   ", which GraphML does not know; write undirected");
    }
    refuse_text(element);
    for (IOXAXMLElement* child : oxa::children(element)) {
      if (is(*child, "node")) {
        nodes_.push_back({child, file_.needed_value(*child, "id"), 0});
      } else if (is(*child, "edge")) {
        edges_.push_back(child);
      } else if (is(*child, "hyperedge")) {
        refuse(*child, "a hyperedge", "write an edge for each two of its nodes");
      }
    }
  }

  [[noreturn]] void refuse(IOXAXMLElement& element, const std::string& what, const char* advice) {
    const auto id = FileDocument::value(element, "id");
    file_.malformed(element, "has " + what + (id ? " with the id " + quoted(*id) : "") +
                                 ", which graphs here do not have; " + advice);
  }

  void read_data(IOXAXMLElement& parent, GraphPart part, std::uint64_t item) {
    refuse_text(parent);
    seen_.clear();
    for (IOXAXMLElement* child : oxa::children(parent)) {
      if (is(*child, "data")) {
        take(*child, part, item);
      } else if (part != GraphPart::graph && is(*child, "graph")) {
        refuse(*child, "a graph within <" + std::string(parent.Name()) + ">",
               "put its nodes and edges into the outer graph");
      } else if (part == GraphPart::node && is(*child, "port")) {
        refuse(*child, "a port", "remove it");
      } else if (!is(*child, "desc") && !is_foreign(*child) &&
                 (part != GraphPart::graph || (!is(*child, "node") && !is(*child, "edge")))) {
        unexpected(*child, parent);
      }
    }
  }

  void take(IOXAXMLElement& data, GraphPart part, std::uint64_t item) {
    FileKey* key = keys_->of(file_, data, part);
    if (key == nullptr) {
      return;
    }
    if (std::find(seen_.begin(), seen_.end(), key) != seen_.end()) {
      file_.malformed(data, "has a second value for " + quoted(key->name()) + "; remove one");
    }
    seen_.push_back(key);
    if (part == GraphPart::edge && key->is_weight()) {
      return;  // add_edge has taken it
    }
    key->take(data, graph_, part, item);
  }

  void add_nodes() {
    std::unordered_map<std::string_view, const Node*> first;
    for (Node& node : nodes_) {
      if (!first.emplace(node.id, &node).second) {
        file_.malformed(*node.element,
                        "has a second node with the id " + quoted(node.id) + "; rename one");
      }
    }
    const std::vector<std::string> labels = find_labels();
    for (std::size_t index = 0; index < nodes_.size(); ++index) {
      stop_now_and_then();
      Node& node = nodes_[index];
      const std::string& label = labels.empty() ? node.id : labels[index];
      check(graph_.AddNode(label.c_str(), &node.number));
      numbers_.emplace(node.id, node.number);
    }
  }

  // Returns the labels of nodes that have numbers for ids, empty when the ids are the labels.
  std::vector<std::string> find_labels() {
    const bool numbered = std::all_of(nodes_.begin(), nodes_.end(),
                                      [](const Node& node) { return is_number_of_node(node.id); });
    for (const char* name : {"label", "name"}) {
      const FileKey* key = numbered ? keys_->texts_of_nodes(name) : nullptr;
      std::vector<std::string> labels =
          key != nullptr ? texts_of(*key) : std::vector<std::string>();
      const std::unordered_set<std::string_view> different(labels.begin(), labels.end());
      if (!labels.empty() && different.size() == nodes_.size()) {
        return labels;
      }
    }
    return {};
  }

  // Returns a text for each node that has one.
  std::vector<std::string> texts_of(const FileKey& key) {
    std::vector<std::string> texts;
    for (const Node& node : nodes_) {
      for (IOXAXMLElement* data : oxa::children(*node.element, "data")) {
        if (keys_->of(file_, *data, GraphPart::node) == &key) {
          texts.push_back(key.value(*data).text);
        }
      }
    }
    return texts;
  }

  void add_edge(IOXAXMLElement& edge) {
    for (const char* port : {"sourceport", "targetport"}) {
      if (FileDocument::value(edge, port)) {
        refuse(edge, "an edge to a port", "remove the attributes sourceport and targetport");
      }
    }
    if (is_directed(edge)) {
      refuse(edge, "a directed edge",
             "write edgedefault=\"undirected\", and directed=\"true\" nowhere, if directions do "
             "not matter");
    }
    const std::uint64_t source = end_of(edge, "source");
    const std::uint64_t target = end_of(edge, "target");
    const std::uint64_t number = graph_.GetEdgeCount();
    check(graph_.AddEdge(source, target, weight_of(edge)));
    read_data(edge, GraphPart::edge, number);
  }

  bool is_directed(IOXAXMLElement& edge) {
    const auto value = FileDocument::value(edge, "directed");
    const auto directed = value ? parse_bool(*value) : directed_;
    if (!directed) {
      file_.malformed(
          edge, "has the value " + quoted(*value) + " for directed; write false, or leave it out");
    }
    return *directed;
  }

  std::uint64_t end_of(IOXAXMLElement& edge, const char* end) {
    const std::string id = file_.needed_value(edge, end);
    const auto found = numbers_.find(id);
    if (found == numbers_.end()) {
      file_.malformed(edge, std::string("has an edge whose ") + end + " is " + quoted(id) +
                                ", which is no node; add a <node> with this id");
    }
    return found->second;
  }

  double weight_of(IOXAXMLElement& edge) {
    for (IOXAXMLElement* data : oxa::children(edge, "data")) {
      const FileKey* key = keys_->of(file_, *data, GraphPart::edge);
      if (key != nullptr && key->is_weight()) {
        return key->weight(*data, key->value(*data));
      }
    }
    return keys_->default_weight();
  }

  oxa::Ref<IOXAProgressIndicator> progress_;
  TypeNames types_;
  FileDocument file_;
  IGraph& graph_;
  FileKeys* keys_ = nullptr;
  bool directed_ = false;
  std::size_t items_ = 0;
  std::vector<Node> nodes_;
  std::vector<IOXAXMLElement*> edges_;
  std::unordered_map<std::string_view, std::uint64_t> numbers_;
  // The keys of the data of the element at hand.
  std::vector<const FileKey*> seen_;
};

}  // namespace

void GraphmlReader::read(std::string_view text, IGraph& graph) {
  Reading(context_, text, graph).run();
}

}  // namespace graph
