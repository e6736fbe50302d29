// A plug-in that says what it is, but does not keep to the contract when it works.
#include <graph_contract.h>
#include <oxa/sdk/plugin.h>

#include <stdexcept>

namespace {

using Run = OXAResult (*)(IGraph& graph);

OXAResult boom(IGraph&) { throw std::runtime_error("boo"); }
OXAResult wordless(IGraph&) { throw 42; }
OXAResult idle(IGraph&) { return S_OK; }
OXAResult silent(IGraph&) { return E_UNEXPECTED; }

OXAResult set_zeros(IGraph& graph, const char* column, GraphColumnKind kind) {
  const std::vector<double> zeros(graph.GetNodeCount());
  return graph.SetColumn(column, kind, zeros.data(), zeros.size());
}

OXAResult flat(IGraph& graph) { return set_zeros(graph, "x", GraphColumnKind::position); }
OXAResult place(IGraph& graph) { return set_zeros(graph, "place", GraphColumnKind::position); }

OXAResult astronomic(IGraph& graph) {
  const std::vector<double> classes(graph.GetNodeCount(), 1e18);
  return graph.SetColumn("astronomic", GraphColumnKind::category, classes.data(), classes.size());
}

class Algorithm : public oxa::Implements<IGraphAlgorithm> {
 public:
  const char* GetName() final { return name_; }
  const char* GetDescription() final { return "nothing good"; }
  OXAResult Run(IGraph* graph, IGraphErrorText*) final { return run_(*graph); }

 protected:
  Algorithm(const char* name, ::Run run) : name_(name), run_(run) {}

 private:
  const char* name_;
  ::Run run_;
};

class Layout : public oxa::Implements<IGraphLayout> {
 public:
  const char* GetName() final { return name_; }
  const char* GetDescription() final { return "nothing good"; }
  OXAResult Arrange(IGraph* graph, IGraphErrorText*) final { return run_(*graph); }

 protected:
  Layout(const char* name, ::Run run) : name_(name), run_(run) {}

 private:
  const char* name_;
  ::Run run_;
};

struct Boom final : Algorithm {
  Boom() : Algorithm("boom", boom) {}
};
struct Wordless final : Algorithm {
  Wordless() : Algorithm("wordless", wordless) {}
};
struct Idle final : Algorithm {
  Idle() : Algorithm("idle", idle) {}
};
struct Silent final : Algorithm {
  Silent() : Algorithm("silent", silent) {}
};
struct Place final : Algorithm {
  Place() : Algorithm("place", place) {}
};
struct Astronomic final : Algorithm {
  Astronomic() : Algorithm("astronomic", astronomic) {}
};
struct Flat final : Layout {
  Flat() : Layout("flat", flat) {}
};
struct BoomLayout final : Layout {
  BoomLayout() : Layout("boom", boom) {}
};

class Reader final : public oxa::Implements<IGraphReader> {
 public:
  const char* GetName() override { return "careless"; }
  const char* GetExtensions() override { return ".boom"; }
  OXAResult Read(const char*, std::uint64_t, IGraph* graph, IGraphErrorText*) override {
    return boom(*graph);
  }
};

class Writer final : public oxa::Implements<IGraphWriter> {
 public:
  const char* GetName() override { return "careless"; }
  const char* GetExtensions() override { return ".boom"; }
  OXAResult Write(IGraph* graph, IGraphOptions*, IGraphOutput*, IGraphErrorText*) override {
    return boom(*graph);
  }
};

}  // namespace

OXA_PLUGIN("Careless work", "1.0", oxa::offer<Boom>(IID_IOXAAlgorithm),
           oxa::offer<Wordless>(IID_IOXAAlgorithm), oxa::offer<Idle>(IID_IOXAAlgorithm),
           oxa::offer<Silent>(IID_IOXAAlgorithm), oxa::offer<Place>(IID_IOXAAlgorithm),
           oxa::offer<Astronomic>(IID_IOXAAlgorithm), oxa::offer<Flat>(IID_IOXALayout),
           oxa::offer<BoomLayout>(IID_IOXALayout), oxa::offer<Reader>(IID_IOXAFileReader),
           oxa::offer<Writer>(IID_IOXAFileWriter))
