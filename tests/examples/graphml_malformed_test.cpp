// What the reader of GraphML says of files that make no sense.
#include <random>

#include "graphml_host.h"
#include "support/capture.h"

namespace {

class GraphmlMalformedTest : public graph_test::GraphmlTest {
 protected:
  // Expects success, or a reason that names a line.
  void expect_clear(const std::string& text) {
    const OXAResult result = read_graphml(text);
    EXPECT_TRUE(result == S_OK ? error->text.empty()
                               : result == E_INVALIDDATA && error->text.rfind("line ", 0) == 0)
        << result << " " << error->text << "\n"
        << text;
  }
};

// The library says nothing of a file that is refused: it has not seen it.
TEST_F(GraphmlMalformedTest, NamesTheLineOfWhatIsNoXml) {
  const std::string long_text(100000, 'x');
  const struct {
    std::string text;
    const char* error;
  } table[] = {
      {"", "line 1 ends a file without an element; write <graphml>"},
      {"\n\nhello", "line 3 has text outside of all elements; remove it"},
      {"<!DOCTYPE graphml>",
       "line 1 declares a document type or is cut short; remove <!DOCTYPE with all that is in it"},
      {"<graphml>\n<![CDATA[x]]></graphml>",
       "line 2 has a CDATA section, which is not read here; write its text with &lt; and &amp;"},
      {"<?xml version='1.0' encoding='ISO-8859-1'?><graphml/>",
       "line 1 declares an encoding other than UTF-8; save the file as UTF-8"},
      {"<graphml>\n\xE9", "line 2 is not UTF-8 text; save the file as UTF-8"},
      {std::string("<graphml>\0", 10), "line 1 has a character that no XML file holds; remove it"},
      {"<graphml>\n<a>\n", "line 3 ends within <a> of line 2; get the whole file"},
      {"<graphml><!-- ", "line 1 ends within a comment; get the whole file"},
      {"<graphml a='", "line 1 ends within a value; get the whole file"},
      {"<graphml", "line 1 ends within a tag; get the whole file"},
      {"<graphml>\n</graph>",
       "line 2 has the end tag </graph>, where <graphml> of line 1 has not ended; pair the tags"},
      {"</a>", "line 1 has the end tag </a>, where all elements have ended; pair the tags"},
      {"<graphml/>\n<graphml/>", "line 2 begins a second outermost element; put all into one"},
      {"<graphml / >",
       "line 1 has a tag of <graphml> that is not well-formed; write attributes as "
       "name=\"value\""},
      {"<graphml a=1>",
       "line 1 has a tag of <graphml> that is not well-formed; write attributes as "
       "name=\"value\""},
      {"<graphml a='1'b='2'>",
       "line 1 has a tag of <graphml> that is not well-formed; write attributes as "
       "name=\"value\""},
      {"<graphml b='1'\n a='1' b='2' c='3'\n>",
       "line 1 has the attribute b twice in one tag; remove one"},
      {"<graphml>1 < 2</graphml>",
       "line 1 has a tag that is not well-formed; write < as &lt; where it begins none"},
      {"<graphml\n a='<'/>", "line 2 has a < within a value; write &lt;"},
      {"<graphml>a\n&nbsp;</graphml>",
       "line 2 has \"&nbsp;\", which stands for no character; write & as &amp;"},
      {"<graphml a='&#0;'/>",
       "line 1 has \"&#0;\", which stands for no character; write & as &amp;"},
      {"<graphml a='&#99999999999;'/>",
       "line 1 has \"&#99999999999;\", which stands for no character; write & as &amp;"},
      {"<graphml><n\u00F6de/></graphml>",
       "line 1 has a name with a character that is not of ASCII, which is not read here; rename "
       "it"},
      {"<graphml>a & b</graphml>",
       "line 1 has a & without ;, which stands for no character; write & as &amp;"},
      {"<graphml>text\n<graph/></graphml>",
       "line 2 has an element beside the text of <graphml>; remove one of them"},
      {"<graphml><graph/>\ntext</graphml>",
       "line 2 has an element beside the text of <graphml>; remove one of them"},
      {"<graphml a='" + long_text + "'/>",
       "line 1 has a value of more than 4095 bytes; shorten it"},
      {"<graphml><data>" + long_text + "\n</data></graphml>",
       "line 2 ends a text of more than 99998 bytes; shorten it"},
      {"<" + long_text + "/>", "line 1 has a name of more than 4095 bytes; shorten it"},
  };
  const auto written = oxa_test::written_by([&] {
    for (const auto& row : table) {
      EXPECT_EQ(read_graphml(row.text), E_INVALIDDATA) << row.error;
      EXPECT_EQ(error->text, row.error);
    }
  });
  EXPECT_EQ(written.out + written.err, "");
}

TEST_F(GraphmlMalformedTest, NamesTheLineOfWhatIsNoGraphml) {
  const struct {
    const char* text;
    const char* error;
  } table[] = {
      {"\n<svg/>", "line 2 begins with <svg>, where <graphml> is expected; use a GraphML file"},
      {"<graphml/>", "line 1 begins a file without a graph; add <graph>"},
      {"<graphml><graph/>\n<graph/></graphml>", "line 2 begins a second graph; keep one in a file"},
      {"<graphml>\n<node id='a'/></graphml>",
       "line 2 has <node> within <graphml>, where GraphML has none; remove it"},
      {"<graphml><graph>\n<key id='k'/></graph></graphml>",
       "line 2 has <key> within <graph>, where GraphML has none; remove it"},
      {"<graphml><graph>\nhello</graph></graphml>",
       "line 1 has a text within <graph>, where GraphML has none; put it into <data>"},
      {"<graphml><graph><node id='a'>\nhello</node></graph></graphml>",
       "line 1 has a text within <node>, where GraphML has none; put it into <data>"},
      {"<graphml><graph>\n<node/></graph></graphml>",
       "line 2 has <node> without the attribute id; add it"},
      {"<graphml><graph>\n<node id='a'/>\n\n<node id='a'/></graph></graphml>",
       "line 4 has a second node with the id \"a\"; rename one"},
      {"<graphml><graph><node id='a'/>\n<edge source='a' target='b'/></graph></graphml>",
       "line 2 has an edge whose target is \"b\", which is no node; add a <node> with this id"},
      {"<graphml><graph><node id='a'/>\n<edge target='a'/></graph></graphml>",
       "line 2 has <edge> without the attribute source; add it"},
      {"<graphml><graph edgedefault='directed'><node id='a'/>\n"
       "<edge id='e' source='a' target='a'/></graph></graphml>",
       "line 2 has a directed edge with the id \"e\", which graphs here do not have; write "
       "edgedefault=\"undirected\", and directed=\"true\" nowhere, if directions do not matter"},
      {"<graphml><graph><node id='a'/>\n"
       "<edge directed='true' source='a' target='a'/></graph></graphml>",
       "line 2 has a directed edge, which graphs here do not have; write "
       "edgedefault=\"undirected\", and directed=\"true\" nowhere, if directions do not matter"},
      {"<graphml><graph><node id='a'/>\n"
       "<edge directed='1' source='a' target='a'/></graph></graphml>",
       "line 2 has a directed edge, which graphs here do not have; write "
       "edgedefault=\"undirected\", and directed=\"true\" nowhere, if directions do not matter"},
      {"<graphml><graph><node id='a'/>\n"
       "<edge directed='yes' source='a' target='a'/></graph></graphml>",
       "line 2 has the value \"yes\" for directed; write false, or leave it out"},
      {"<graphml>\n<graph edgedefault='mixed'/></graphml>",
       "line 2 has the edgedefault \"mixed\", which GraphML does not know; write undirected"},
      {"<graphml><graph><node id='a'>\n<graph id='in'/></node></graph></graphml>",
       "line 2 has a graph within <node> with the id \"in\", which graphs here do not have; put "
       "its nodes and edges into the outer graph"},
      {"<graphml><graph>\n<hyperedge id='h'/></graph></graphml>",
       "line 2 has a hyperedge with the id \"h\", which graphs here do not have; write an edge for "
       "each two of its nodes"},
      {"<graphml><graph><node id='a'>\n<port name='p'/></node></graph></graphml>",
       "line 2 has a port, which graphs here do not have; remove it"},
      {"<graphml><graph><node id='a'/>\n"
       "<edge source='a' target='a' targetport='p'/></graph></graphml>",
       "line 2 has an edge to a port, which graphs here do not have; remove the attributes "
       "sourceport and targetport"},
      {"<graphml><graph><node id='a'>\n<edge/></node></graph></graphml>",
       "line 2 has <edge> within <node>, where GraphML has none; remove it"},
      {"<graphml><graph>\n<locator/></graph></graphml>",
       "line 2 has <locator> within <graph>, where GraphML has none; remove it"},
  };
  for (const auto& row : table) {
    EXPECT_EQ(read_graphml(row.text), E_INVALIDDATA) << row.text;
    EXPECT_EQ(error->text, row.error);
  }
}

TEST_F(GraphmlMalformedTest, NamesTheLineOfKeysThatMakeNoSense) {
  const std::string number = "<key id='k' for='node' attr.name='v' attr.type='int'";
  const struct {
    std::string keys;
    const char* error;
  } table[] = {
      {"<key attr.name='v'/>", "line 2 has <key> without the attribute id; add it"},
      {"<key id='k' attr.name=''/>", "line 2 has a key without a name; name it"},
      {number + "/>\n" + number + "/>", "line 3 has a second key with the id \"k\"; rename one"},
      {number + "/>\n<key id='l' attr.name='v' attr.type='int'/>",
       "line 3 has a second key called \"v\" for the same; rename one"},
      {number + "/>\n<key id='l' for='node' attr.name='v' attr.type='long'/>",
       "line 3 has \"v\", which the graph holds with another data type; rename it"},
      {"<key id='k' for='nodes' attr.name='v'/>",
       "line 2 has a key for \"nodes\", which GraphML does not know; write graph, node, edge or "
       "all"},
      {"<key id='k' attr.name='v' attr.type='integer'/>",
       "line 2 has the attr.type \"integer\", which GraphML does not know; write boolean, int, "
       "long, float, double or string"},
      {"<key id='k' attr.name='v' attr.type='a::b'/>",
       "line 2 has the attr.type \"a::b\", which GraphML does not know; write boolean, int, "
       "long, float, double or string"},
      {number + " oxa:type='string'/>",
       "line 2 has the oxa:type \"string\", which is no kind of int; correct it or leave it out"},
      {number + " oxa:type='bool'/>",
       "line 2 has the oxa:type \"bool\", which is no kind of int; correct it or leave it out"},
      {number + " oxa:min='5' oxa:max='1'/>",
       "line 2 has for \"v\" a range from \"5\" to \"1\", which is none of its data type; correct "
       "oxa:min and oxa:max"},
      {number + " oxa:max='many'/>",
       "line 2 has for \"v\" a range from \"\" to \"many\", which is none of its data type; "
       "correct oxa:min and oxa:max"},
      {number + " oxa:column='size'/>",
       "line 2 has the column \"size\", which is not one of numbers of nodes that are a measure, "
       "category or position; leave out oxa:column"},
      {"<key id='k' for='edge' attr.name='v' attr.type='int' oxa:column='measure'/>",
       "line 2 has the column \"measure\", which is not one of numbers of nodes that are a "
       "measure, category or position; leave out oxa:column"},
      {number + ">\n<default>x</default></key>",
       "line 3 has the value \"x\" for \"v\", which is not of the type int; correct it"},
      {"<key id='k' attr.name='v' attr.type='string'>\n<default><b/></default></key>",
       "line 3 has elements within the value for \"v\"; write < as &lt;"},
      {number + "><oxa:entry name='a' value='1'/>\n<oxa:entry name='a' value='2'/></key>",
       "line 3 has the entry \"a\" again; remove one"},
      {number + ">\n<oxa:entry value='1'/></key>",
       "line 3 has <oxa:entry> without the attribute name; add it"},
      {"<key id='k' for='edge' attr.name='weight' attr.type='string'/>",
       "line 2 has weights of edges that are no numbers; write attr.type double, or rename them"},
      {"<key id='k' for='edge' attr.name='weight' attr.type='double'>\n<default>-1</default></key>",
       "line 3 has the weight \"-1\", which is not a finite number from 0 on; correct it"},
  };
  for (const auto& row : table) {
    EXPECT_EQ(read_parts(row.keys, ""), E_INVALIDDATA) << row.keys;
    EXPECT_EQ(error->text, row.error);
  }
}

TEST_F(GraphmlMalformedTest, NamesTheLineOfValuesThatMakeNoSense) {
  const std::string keys =
      "<key id='k' for='node' attr.name='v' attr.type='int'/>"
      "<key id='w' for='edge' attr.name='weight' attr.type='double'/>"
      "<key id='m' for='node' attr.name='mood' attr.type='string' oxa:type='enum'>"
      "<oxa:entry name='good' value='1'/></key>"
      "<key id='l' for='node' attr.name='size' attr.type='long'/>"
      "<key id='c' for='node' attr.name='class' attr.type='int' oxa:column='category'/>";
  const struct {
    const char* items;
    const char* error;
  } table[] = {
      {"<node id='a'>\n<data key='k'>seven</data></node>",
       "line 5 has the value \"seven\" for \"v\", which is not of the type int; correct it"},
      {"<node id='a'>\n<data key='k'/></node>",
       "line 5 has the value \"\" for \"v\", which is not of the type int; correct it"},
      {"<node id='a'>\n<data key='l'>1.5</data></node>",
       "line 5 has the value \"1.5\" for \"size\", which is not of the type int64; correct it"},
      {"<node id='a'>\n<data key='m'>good</data></node>",
       "line 5 has the value \"good\" for \"mood\", which is none of its entries; correct it or "
       "add an oxa:entry"},
      {"<node id='a'>\n<data key='x'>1</data></node>",
       "line 5 has a value for the key \"x\", which is not in the file; add a <key> with this id"},
      {"<node id='a'>\n<data>1</data></node>",
       "line 5 has <data> without the attribute key; add it"},
      {"<data key='k'>1</data>",
       "line 4 has a value of the graph for the key \"k\", which is for others; write "
       "for=\"graph\" or \"all\" there"},
      {"<node id='a'><data key='w'>1</data></node>",
       "line 4 has a value of a node for the key \"w\", which is for others; write for=\"node\" "
       "or \"all\" there"},
      {"<node id='a'><data key='k'>1</data>\n<data key='k'>1</data></node>",
       "line 5 has a second value for \"v\"; remove one"},
      {"<node id='a'>\n<data key='k'>1<b/></data></node>",
       "line 5 has elements within the value for \"v\"; write < as &lt;"},
      {"<node id='a'/><edge source='a' target='a'>\n<data key='w'>nan</data></edge>",
       "line 5 has the weight \"NaN\", which is not a finite number from 0 on; correct it"},
      {"<node id='a'><data key='c'>7</data></node>",
       "line 2 has the column \"class\" with values that are no numbers of classes; leave out "
       "oxa:column"},
  };
  for (const auto& row : table) {
    EXPECT_EQ(read_parts(keys, row.items), E_INVALIDDATA) << row.items;
    EXPECT_EQ(error->text, row.error);
  }
}

TEST_F(GraphmlMalformedTest, LongTextsAreCutInMessages) {
  const std::string key = "<key id='k' for='node' attr.name='v' attr.type='int'/>";
  std::string text(59, 'x');
  text += "\u00DCyyyy";
  read_parts(key, "<node id='a'><data key='k'>" + text + "</data></node>");
  EXPECT_EQ(error->text, "line 4 has the value \"" + std::string(59, 'x') +
                             "...\" for \"v\", which is not of the type int; correct it");
}

TEST_F(GraphmlMalformedTest, AFileCutShortAnywhereIsRefusedOrRead) {
  const std::string text = graph_test::full_file;
  std::size_t read = 0;
  const auto written = oxa_test::written_by([&] {
    for (std::size_t size = 0; size <= text.size(); ++size) {
      expect_clear(text.substr(0, size));
      read += error->text.empty() ? 1 : 0;
    }
  });
  EXPECT_EQ(read, 2U);  // with and without the last end of line
  EXPECT_EQ(written.out + written.err, "");
}

TEST_F(GraphmlMalformedTest, AFileWithFaultsAnywhereIsRefusedOrRead) {
  constexpr std::string_view faults = "<>/?!-&;\"'= a0\n\xC3\\[]:";
  std::mt19937 random(4);
  const auto written = oxa_test::written_by([&] {
    for (int round = 0; round < 1000; ++round) {
      std::string text = graph_test::full_file;
      for (int fault = 0; fault < 2; ++fault) {
        const std::size_t at = random() % text.size();
        if (random() % 2 == 0) {
          text.erase(at, 1);
        } else {
          text[at] = faults[random() % faults.size()];
        }
      }
      expect_clear(text);
    }
  });
  EXPECT_EQ(written.out + written.err, "");
}

}  // namespace
