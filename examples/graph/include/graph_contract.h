// The contract between oxa-graph and its plug-ins: what readers, writers, algorithms and layouts
// do, and the graph that crosses between them.
//
// A plug-in offers an IGraphReader under IID_IOXAFileReader, an IGraphWriter under
// IID_IOXAFileWriter, an IGraphAlgorithm under IID_IOXAAlgorithm and an IGraphLayout under
// IID_IOXALayout; <graph_plugin.h> holds base classes for them. From its first release on, every
// interface here is frozen: growth is a new interface with a new id.
//
// Everything is called on the host's thread. Texts are UTF-8, terminated, and borrowed for the call
// unless said otherwise. No exception crosses. What plug-ins return as their names, descriptions
// and extensions is never null; the host asks once, and skips a plug-in that returns null.
//
// Progress: around each operation the host calls Begin, UpdateTitle and End of the context's
// progress indicator. An operation that takes long calls SetHeartbeatFrequency(n) once, n being the
// number of UpdateMessage calls that it will make until it is complete, and asks IsActive often.
// When that is false it gives up and returns E_FAIL; the host, who stopped it, shows no error.
#pragma once

#include <oxa/IOXAProperty.h>
#include <oxa/IOXAReference.h>
#include <oxa/OXAVariant.h>
#include <oxa/data_type.h>
#include <oxa/interface_ids.h>
#include <oxa/result.h>

#include <cstdint>

// An edge without direction. Nodes are indices below the graph's node count.
struct GraphEdge {
  std::uint64_t source;
  std::uint64_t target;
  // How strong the tie is: finite, 0 or more.
  double weight;
};

// What the values of a column are.
enum class GraphColumnKind : std::int32_t {
  // A quantity on a continuous scale.
  measure = 0,
  // The number of the class a node belongs to: 0 for the largest class, and so on without gaps.
  category = 1,
  // A coordinate in the plane: the columns "x", growing to the right, and "y", growing downwards.
  position = 2,
};

// What an attribute belongs to. Its items are the graph itself, which is number 0, or the nodes or
// the edges by their numbers.
enum class GraphPart : std::int32_t { graph = 0, node = 1, edge = 2 };

// A graph without directions, loops and parallel edges allowed. Implemented by the host.
//
// Columns are what is computed: a number per node; NaN means that a node has none. Attributes are
// what the data tells: values of any data type of the graph, of nodes and of edges. An attribute is
// described by an IOXAProperty with its name, data type, default value and range, with the entries
// of an enumeration as attributes of the property, and with the support ("graph", "graph"),
// ("graph", "node") or ("graph", "edge"). Of a kind of item there is one attribute of a name.
class IGraph : public IOXAReference {
 public:
  // Finds the node called `label`, or adds it, and stores its index.
  // S_OK for a new node; S_FALSE for one that was there; E_INVALIDARG for a null argument;
  // E_OUTOFMEMORY with nothing added. In existing columns a new node has no value.
  virtual OXAResult AddNode(const char* label, std::uint64_t* node) = 0;

  // Adds an edge.
  // S_OK; E_INVALIDARG for a node that is not there or a weight that is not finite or below 0;
  // E_OUTOFMEMORY with nothing added.
  virtual OXAResult AddEdge(std::uint64_t source, std::uint64_t target, double weight) = 0;

  // Return the number of nodes and of edges.
  virtual std::uint64_t GetNodeCount() = 0;
  virtual std::uint64_t GetEdgeCount() = 0;

  // Returns the label of a node, valid until a node is added, or null for a node that is not there.
  virtual const char* GetLabel(std::uint64_t node) = 0;

  // Stores edge number `edge`; edges keep the order in which they were added.
  // S_OK; E_INVALIDARG for an edge that is not there or a null `out`.
  virtual OXAResult GetEdge(std::uint64_t edge, GraphEdge* out) = 0;

  // Copies `count` values, one per node, into the column `name`, which is made or replaced.
  // S_OK; E_INVALIDARG for a null argument or a count other than that of the nodes, except that
  // `values` may be null when the count is 0, and for a category that is no whole number from 0 to
  // below the count; E_OUTOFMEMORY. After a failure nothing is changed.
  virtual OXAResult SetColumn(const char* name, GraphColumnKind kind, const double* values,
                              std::uint64_t count) = 0;

  // Stores a column's kind and its values, one per node, valid until the column is set or a node is
  // added.
  // S_OK; E_INVALIDARG for a null argument; E_NOTFOUND. After a failure nothing is stored.
  virtual OXAResult GetColumn(const char* name, GraphColumnKind* kind, const double** values) = 0;

  // Returns the name of a column, valid as long as the graph, or null for an index past the last
  // one. Columns keep the order in which they were made.
  virtual const char* GetColumnName(std::uint64_t column) = 0;

  // Finds the attribute called `name`, or adds it, and stores its number, by which it is known from
  // then on. A new one has the data type, and no value yet: describe it through GetAttribute.
  // S_OK for a new one; S_FALSE for one that was there; E_TYPEMISMATCH for one that was there with
  // another data type; E_INVALIDARG for a null argument, an empty name, a part or data type that
  // there is not, and for "weight" of edges, which GraphEdge holds; E_NOTFOUND when the host has no
  // preferences, which make descriptions; E_OUTOFMEMORY. After a failure nothing is added.
  virtual OXAResult AddAttribute(GraphPart part, const char* name, OXA::Property::DataType type,
                                 std::uint64_t* attribute) = 0;

  // Returns what describes attribute number `attribute` of a part, borrowed, and valid as long as
  // the graph; null past the last one. Its data type stays as it is.
  virtual IOXAProperty* GetAttribute(GraphPart part, std::uint64_t attribute) = 0;

  // Stores a copy of a value, which has the kind of the data type (oxa::kind_of); one of the kind
  // Nothing takes the value away. Range and enumeration are not consulted.
  // S_OK; E_INVALIDARG for an attribute or an item that is not there; E_TYPEMISMATCH for another
  // kind; E_OUTOFMEMORY. After a failure nothing is changed.
  virtual OXAResult SetValue(GraphPart part, std::uint64_t attribute, std::uint64_t item,
                             const OXAVariant& value) = 0;

  // Returns the value of an item, valid until one of the attribute is set; null when it has none,
  // whatever the default is, and for an attribute or an item that is not there.
  virtual const OXAVariant* GetValue(GraphPart part, std::uint64_t attribute,
                                     std::uint64_t item) = 0;

 protected:
  ~IGraph() = default;
};

// Receives why an operation failed. Implemented by the host, handed to every operation that can
// fail for a reason that only the plug-in knows; may be null.
class IGraphErrorText : public IOXAReference {
 public:
  // Takes the reason and what to do about it, in the form that completes the host's sentence
  // "cannot read "x.txt": ...": no capital, no final stop. Copied. The last text set is the one
  // shown.
  virtual void Set(const char* text) = 0;

 protected:
  ~IGraphErrorText() = default;
};

// Names and values of what the person asked for. Implemented by the host. Pictures use "title",
// "size" and "color" (columns to show by, absent for none) and "theme" ("auto", "light", "dark").
class IGraphOptions : public IOXAReference {
 public:
  // Returns the value of the option `name`, valid as long as this object, or null when it is
  // absent.
  virtual const char* Get(const char* name) = 0;

 protected:
  ~IGraphOptions() = default;
};

// Receives the bytes of a file. Implemented by the host, which takes care that a file is replaced
// as a whole or not at all.
class IGraphOutput : public IOXAReference {
 public:
  // Appends `size` bytes.
  // S_OK; E_INVALIDARG for null data; E_FAIL when they cannot be written: the writer gives up and
  // returns that result without setting a text, since the host knows why.
  virtual OXAResult Write(const char* data, std::uint64_t size) = 0;

 protected:
  ~IGraphOutput() = default;
};

// Reads graphs from the contents of files. Implemented by plug-ins.
class IGraphReader : public IOXAReference {
 public:
  // Returns the name of the format for people, never null, valid as long as this object.
  virtual const char* GetName() = 0;

  // Returns the file name extensions of the format, separated by blanks: ".txt .edges". Letters of
  // ASCII stand for both cases. Never null, valid as long as this object.
  virtual const char* GetExtensions() = 0;

  // Adds the graph in `size` bytes of `data`, which need not be terminated, to `graph`.
  // S_OK; E_INVALIDARG for a null `graph` or `data`; E_INVALIDDATA for malformed input, with the
  // line in `error`; E_FAIL when stopped; E_OUTOFMEMORY. After a failure the graph holds a part.
  virtual OXAResult Read(const char* data, std::uint64_t size, IGraph* graph,
                         IGraphErrorText* error) = 0;

 protected:
  ~IGraphReader() = default;
};

// Writes graphs. Implemented by plug-ins.
class IGraphWriter : public IOXAReference {
 public:
  // As for readers.
  virtual const char* GetName() = 0;
  virtual const char* GetExtensions() = 0;

  // Writes `graph` to `output`. `options` may be null.
  // S_OK; E_INVALIDARG for a null `graph` or `output`, or an option that makes no sense, with a
  // text in `error`; E_FAIL when stopped or when the output fails; E_OUTOFMEMORY.
  virtual OXAResult Write(IGraph* graph, IGraphOptions* options, IGraphOutput* output,
                          IGraphErrorText* error) = 0;

 protected:
  ~IGraphWriter() = default;
};

// Computes a value per node. Implemented by plug-ins.
class IGraphAlgorithm : public IOXAReference {
 public:
  // Returns the algorithm's name, which people type and which is the column it makes: one word in
  // small letters, never null, valid as long as this object.
  virtual const char* GetName() = 0;

  // Returns what it computes, a phrase for people, never null, valid as long as this object.
  virtual const char* GetDescription() = 0;

  // Computes the column called GetName.
  // S_OK, and the column is there; E_INVALIDARG for a null `graph`; E_FAIL when stopped or, with a
  // text in `error`, when it cannot be computed; E_OUTOFMEMORY. After a failure the column is as
  // before.
  virtual OXAResult Run(IGraph* graph, IGraphErrorText* error) = 0;

 protected:
  ~IGraphAlgorithm() = default;
};

// Arranges the nodes in the plane. Implemented by plug-ins.
class IGraphLayout : public IOXAReference {
 public:
  // As for algorithms.
  virtual const char* GetName() = 0;
  virtual const char* GetDescription() = 0;

  // Computes the columns "x" and "y", in any unit, the same for both. Both are there after S_OK.
  // The results of IGraphAlgorithm::Run.
  virtual OXAResult Arrange(IGraph* graph, IGraphErrorText* error) = 0;

 protected:
  ~IGraphLayout() = default;
};

template <>
struct OXAInterfaceId<IGraphReader> {
  static const _GUID& value() { return IID_IOXAFileReader; }
};

template <>
struct OXAInterfaceId<IGraphWriter> {
  static const _GUID& value() { return IID_IOXAFileWriter; }
};

template <>
struct OXAInterfaceId<IGraphAlgorithm> {
  static const _GUID& value() { return IID_IOXAAlgorithm; }
};

template <>
struct OXAInterfaceId<IGraphLayout> {
  static const _GUID& value() { return IID_IOXALayout; }
};
