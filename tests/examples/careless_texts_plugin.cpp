// A plug-in whose objects do not say what they are. CARELESS_CLASS picks the one it offers, under
// CARELESS_ID.
#include <graph_contract.h>
#include <oxa/sdk/plugin.h>

#include <stdexcept>

namespace {

class Nameless final : public oxa::Implements<IGraphAlgorithm> {
 public:
  const char* GetName() override { return nullptr; }
  const char* GetDescription() override { return "what has no name"; }
  OXAResult Run(IGraph*, IGraphErrorText*) override { return S_OK; }
};

class Undescribed final : public oxa::Implements<IGraphLayout> {
 public:
  const char* GetName() override { return "undescribed"; }
  const char* GetDescription() override { return nullptr; }
  OXAResult Arrange(IGraph*, IGraphErrorText*) override { return S_OK; }
};

class Endless final : public oxa::Implements<IGraphWriter> {
 public:
  const char* GetName() override { return "endless"; }
  const char* GetExtensions() override { return nullptr; }
  OXAResult Write(IGraph*, IGraphOptions*, IGraphOutput*, IGraphErrorText*) override {
    return S_OK;
  }
};

class Shouting final : public oxa::Implements<IGraphReader> {
 public:
  const char* GetName() override { throw std::runtime_error("no name today"); }
  const char* GetExtensions() override { return ".shout"; }
  OXAResult Read(const char*, std::uint64_t, IGraph*, IGraphErrorText*) override { return S_OK; }
};

}  // namespace

OXA_PLUGIN("Careless texts", "1.0", oxa::offer<CARELESS_CLASS>(CARELESS_ID))
