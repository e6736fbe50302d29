// A host for the plug-ins of oxa-graph.
#pragma once

#include <graph_contract.h>
#include <graph_store.h>
#include <gtest/gtest.h>
#include <oxa/oxa.h>
#include <oxa/sdk/implements.h>
#include <plugin_folder.h>

#include <initializer_list>
#include <map>
#include <string>
#include <vector>

namespace graph_test {

// A progress indicator that counts, and tells to stop once it has been asked often enough.
class CountingProgress final : public oxa::Implements<IOXAProgressIndicator> {
 public:
  OXAResult Begin() override { return S_OK; }
  OXAResult End() override { return S_OK; }
  OXAResult UpdateMessage(const char*) override { return ++messages, S_OK; }
  OXAResult UpdateTitle(const char*) override { return S_OK; }
  OXAResult SetHeartbeatFrequency(int announced) override { return frequency = announced, S_OK; }
  bool IsActive() override { return ++asked < stop_at; }

  int messages = 0;
  int frequency = 0;
  long asked = 0;
  long stop_at = 1L << 60;
};

class ErrorText final : public oxa::Implements<IGraphErrorText> {
 public:
  void Set(const char* set) override { text = set; }
  std::string text;
};

class Options final : public oxa::Implements<IGraphOptions> {
 public:
  const char* Get(const char* name) override {
    const auto found = values.find(name);
    return found != values.end() ? found->second.c_str() : nullptr;
  }
  std::map<std::string, std::string> values;
};

// Keeps what is written, until it is told to fail.
class Output final : public oxa::Implements<IGraphOutput> {
 public:
  OXAResult Write(const char* data, std::uint64_t size) override {
    if (fails) {
      return E_FAIL;
    }
    text.append(data, size);
    return S_OK;
  }
  std::string text;
  bool fails = false;
};

// The plug-ins in a context of their own, and a graph to work on.
class GraphTest : public testing::Test {
 protected:
  GraphTest() {
    OXACreateContext(IID_IOXAContext, oxa::adopt_into(context));
    context->AddToContext(IID_IOXAProgressIndicator,
                          static_cast<IOXAProgressIndicator*>(progress.get()));
    plugins = std::make_unique<PluginFolder>(context.get());
    plugins->load(OXA_GRAPH_PLUGINS);
  }

  template <class Interface>
  Interface& named(const std::string& name) {
    for (const Offered* entry : plugins->all<Interface>()) {
      if (entry->name == name) {
        return entry->as<Interface>();
      }
    }
    throw std::runtime_error("no plug-in offers " + name);
  }

  OXAResult read(const std::string& text) {
    return named<IGraphReader>("edge list")
        .Read(text.data(), text.size(), graph.get(), error.get());
  }

  OXAResult run(const std::string& algorithm) {
    return named<IGraphAlgorithm>(algorithm).Run(graph.get(), error.get());
  }

  OXAResult arrange(const std::string& layout) {
    return named<IGraphLayout>(layout).Arrange(graph.get(), error.get());
  }

  std::vector<double> column(const char* name) {
    GraphColumnKind kind{};
    const double* values = nullptr;
    if (graph->GetColumn(name, &kind, &values) < 0) {
      return {};
    }
    return {values, values + graph->GetNodeCount()};
  }

  // The value of the node called `label`.
  double value(const char* name, const char* label) {
    std::uint64_t node = 0;
    graph->AddNode(label, &node);
    return column(name).at(node);
  }

  oxa::Ref<CountingProgress> progress = oxa::make<CountingProgress>();
  oxa::Ref<ErrorText> error = oxa::make<ErrorText>();
  oxa::Ref<IOXAContext> context;
  std::unique_ptr<PluginFolder> plugins;
  oxa::Ref<IGraph> graph = make_graph();
};

}  // namespace graph_test
