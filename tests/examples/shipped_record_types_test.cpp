// What the extension files of oxa-graph's plug-ins declare is what the plug-ins do.
#include <record_types.h>

#include <set>

#include "graph_host.h"
#include "support/capture.h"

namespace {

using Names = std::set<std::string>;

// Keeps which options it is asked for.
class AskedOptions final : public oxa::Implements<IGraphOptions> {
 public:
  const char* Get(const char* name) override {
    asked.insert(name);
    return nullptr;
  }
  Names asked;
};

const char* kind_name(GraphColumnKind kind) {
  switch (kind) {
    case GraphColumnKind::measure:
      return "measure";
    case GraphColumnKind::category:
      return "category";
    default:
      return "position";
  }
}

class ShippedRecordTypesTest : public graph_test::GraphTest {
 protected:
  ShippedRecordTypesTest() : records(context.get()) {
    messages = oxa_test::written_by([&] { records.load(OXA_GRAPH_PLUGINS); }).err;
    OXACreateUserDefinedDataTypeManager(nullptr, IID_IOXAUserDefinedDataTypeManager,
                                        oxa::adopt_into(manager));
  }

  // Returns a type, which must be there.
  IOXAUserDefinedDataType& type(const std::string& name) {
    IOXAUserDefinedDataType* found = nullptr;
    manager->GetUserType(name.c_str(), &found);
    if (found == nullptr) {
      throw std::runtime_error("there is no type " + name);
    }
    return *found;
  }

  IOXADataElement& member(const std::string& type_name, const std::string& name) {
    for (IOXADataElement* element : oxa::elements(type(type_name))) {
      if (element->Name() == name) {
        return *element;
      }
    }
    throw std::runtime_error(type_name + " has no member " + name);
  }

  Names members(const std::string& type_name) {
    Names names;
    for (IOXADataElement* element : oxa::elements(type(type_name))) {
      names.insert(element->Name());
    }
    return names;
  }

  // Expects that each member is a column of the kind that the type string names, whose values are
  // in the member's range.
  void expect_columns(const std::string& type_name) {
    for (IOXADataElement* element : oxa::elements(type(type_name))) {
      GraphColumnKind kind{};
      const double* values = nullptr;
      ASSERT_EQ(graph->GetColumn(element->Name(), &kind, &values), S_OK) << element->Name();
      EXPECT_STREQ(kind_name(kind), type(type_name).Type()) << element->Name();
      for (std::uint64_t node = 0; node < graph->GetNodeCount(); ++node) {
        EXPECT_FALSE(values[node] < element->MinimumValue()) << element->Name();
        EXPECT_FALSE(values[node] > element->MaximumValue()) << element->Name();
      }
    }
  }

  // Returns the names of the algorithms in a plug-in's file.
  Names algorithms(const std::string& file) {
    Names names;
    for (const Offered* entry : plugins->all<IGraphAlgorithm>()) {
      if (entry->file == file) {
        names.insert(entry->name);
      }
    }
    return names;
  }

  void expect_computed(const std::string& type_name) {
    for (const char* text :
         {"", "a a", "a b\nb c 2\nc a\nd e 0\nf f\n", "h a\nh b\nh c\nh d 1e9\n"}) {
      graph = make_graph();
      read(text);
      std::uint64_t alone = 0;
      graph->AddNode("alone", &alone);
      for (const std::string& name : members(type_name)) {
        ASSERT_EQ(run(name), S_OK) << name;
      }
      expect_columns(type_name);
    }
  }

  void expect_arranged(const std::string& layout, const std::string& type_name) {
    for (const char* text : {"", "a a", "a b\nb c 2\nc d\nd a\ne f\n"}) {
      graph = make_graph();
      read(text);
      ASSERT_EQ(arrange(layout), S_OK);
      expect_columns(type_name);
    }
    EXPECT_EQ(members(type_name), (Names{"x", "y"}));
  }

  RecordTypes records;
  std::string messages;
  oxa::Ref<IOXAUserDefinedDataTypeManager> manager;
};

TEST_F(ShippedRecordTypesTest, LoadWithoutAMessage) { EXPECT_EQ(messages, ""); }

TEST_F(ShippedRecordTypesTest, EveryNamespaceIsAPlugIn) {
  Names files;
  for (const Offered& entry : plugins->offered()) {
    files.insert(entry.file);
  }
  for (const RecordType& type : records.all()) {
    EXPECT_EQ(files.count(type.name_space + ".so"), 1U) << type.name_space;
  }
}

TEST_F(ShippedRecordTypesTest, EveryMemberIsDescribedAndOfAKnownType) {
  std::size_t members_seen = 0;
  for (const RecordType& type : records.all()) {
    for (const RecordMember& member : type.members) {
      ++members_seen;
      EXPECT_NE(member.tooltip, "") << type.name << " " << member.name;
      EXPECT_EQ(member.data_type.find("unknown"), std::string::npos) << member.data_type;
    }
  }
  EXPECT_EQ(members_seen, 20U);
}

TEST_F(ShippedRecordTypesTest, CentralitiesAreTheAlgorithmsOfTheirPlugIn) {
  Names declared = members("centralities::scores");
  declared.merge(members("centralities::groups"));
  EXPECT_EQ(declared, algorithms("centralities.so"));
  expect_computed("centralities::scores");
  expect_computed("centralities::groups");
}

TEST_F(ShippedRecordTypesTest, ComponentsAreTheAlgorithmOfTheirPlugIn) {
  EXPECT_EQ(members("components::groups"), algorithms("components.so"));
  expect_computed("components::groups");
}

TEST_F(ShippedRecordTypesTest, LayoutsPutNodesWithinTheirRanges) {
  expect_arranged("force", "force_layout::point");
  expect_arranged("circle", "circle_layout::point");
}

TEST_F(ShippedRecordTypesTest, PlacesOfAnyLayoutFitThePicture) {
  const std::string place = member("svg_writer::node", "place").UserDefinedType();
  for (const char* axis : {"x", "y"}) {
    EXPECT_LT(member(place, axis).MinimumValue(), -1e38);
    EXPECT_GT(member(place, axis).MaximumValue(), 1e38);
  }
}

TEST_F(ShippedRecordTypesTest, WeightsAreWhatTheReaderTakes) {
  IOXADataElement& weight = member("edge_list_reader::edge", "weight");
  read("a b");
  GraphEdge edge{};
  graph->GetEdge(0, &edge);
  EXPECT_EQ(std::to_string(edge.weight), std::to_string(std::stod(weight.DefaultValue())));
  EXPECT_EQ(weight.MinimumValue(), 0);
  EXPECT_EQ(read("a b 0"), S_OK);
  EXPECT_EQ(read("a b -0.5"), E_INVALIDDATA);
  EXPECT_GT(weight.MaximumValue(), 1e300);
  EXPECT_EQ(read("a b 1e300"), S_OK);
}

TEST_F(ShippedRecordTypesTest, OptionsAreThoseThatTheWriterAsksFor) {
  const auto options = oxa::make<AskedOptions>();
  const auto output = oxa::make<graph_test::Output>();
  named<IGraphWriter>("SVG picture").Write(graph.get(), options.get(), output.get(), nullptr);
  EXPECT_EQ(members("svg_writer::options"), options->asked);
}

TEST_F(ShippedRecordTypesTest, DefaultsOfOptionsChangeNothing) {
  const auto options = oxa::make<graph_test::Options>();
  const auto plain = oxa::make<graph_test::Output>();
  const auto chosen = oxa::make<graph_test::Output>();
  auto& writer = named<IGraphWriter>("SVG picture");
  EXPECT_EQ(writer.Write(graph.get(), options.get(), plain.get(), nullptr), S_OK);
  for (const char* name : {"title", "theme"}) {
    options->values[name] = member("svg_writer::options", name).DefaultValue();
  }
  EXPECT_EQ(writer.Write(graph.get(), options.get(), chosen.get(), nullptr), S_OK);
  EXPECT_EQ(chosen->text, plain->text);
}

}  // namespace
