// A plug-in that reports findings, and that has settings which say little of themselves.
#include <graph_findings.h>
#include <graph_plugin.h>
#include <graph_settings.h>
#include <oxa/sdk/plugin.h>

namespace {

class Reporting final : public graph::Algorithm {
 public:
  explicit Reporting(IOXAContext* context)
      : Algorithm("reporting", "nothing, but reports"), context_(context) {
    const auto preferences = oxa::service<IOXAPreferences>(context);
    for (const char* name : {"plain", "hidden"}) {
      IOXAProperty& property =
          oxa::add_setting(*preferences, "reporting", name, OXA::Property::DataType::String);
      property.ViewHints()->SetDisplayFlag(name[0] == 'p');
      preferences->Set("reporting", name, "some");
    }
  }

 private:
  void run(IGraph& graph) override {
    const auto manager = oxa::service<IOXADiagnosticsManager>(context_);
    graph::FindingReport report(
        *manager, {"reports", "odd thing", "what the plug-in found odd", graph::severity::error});
    report.add("here", {}, oxa::make_variant(0.5));
    graph::set_column(graph, "reporting", GraphColumnKind::measure,
                      std::vector<double>(graph.GetNodeCount()));
  }

  IOXAContext* context_;
};

}  // namespace

OXA_PLUGIN("Reporting", "1.0", oxa::offer<Reporting>(IID_IOXAAlgorithm))
