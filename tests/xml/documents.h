// Documents that together cover the dialect, well-formed and not. None holds a zero byte.
#pragma once

#include <string_view>

namespace oxa_test {

inline constexpr std::string_view xml_documents[] = {
    // Accepted.
    "",
    " \t\r\n",
    "<a/>",
    "<a></a>",
    "<a>x</a>",
    "<a>  hello </a>",
    "<a  x=\"1\"\n y = \"\"  />",
    "<a x=\"1\" x=\"2\"/>",
    "<?xml version=\"1.0\"?><a/>",
    "<?xml version=\"1.1\" encoding=\"utf-8\"?>\n<!-- c --><a id=\"1\"><b/></a><!-- d -->\n",
    "<?xml?><a/>",
    "<xml a=\"1\"><xml/></xml>",
    "<a><b><c>1</c></b><b id=\"2\"/></a>",
    "<a>\n <!-- x -- y --> <!--->--> <!----> <!---- --->\n <b/>\n</a>",
    "<a>1 &lt; 2 &amp;amp; 3 &quot;</a>",
    "<data><b/></data>",
    "<data> <b>x</b> </data>",
    "<text>  two  </text>",
    "<a><data key=\"k\">v</data><text>t</text></a>",
    "<data></data><x></x></data>",
    "<a>x<b>y</b>z</a>",
    "<a>x<b y=\"1\"/>z</a>",
    "<a\x80x\xC3\xA9=\"\xE2\x82\xAC\"\x7F/>",
    "<a!\"<b/>",
    "<graph id=\"g\"><node id=\"n0\"><data key=\"d\">1.5</data></node>"
    "<edge source=\"n0\" target=\"n0\"/></graph>",
    "<!-- only a comment -->",
    "name",
    "\"string",
    // Rejected.
    "<a/><b/>",
    "<a>x</b>",
    "<a><b>x</b>y</a>",
    "<a><b>x</b>\"y\"</a>",
    "<a><b></b><c></d></a>",
    "<a x=\"1\"><b y=\"2\"><c/>=</b></a>",
    "<a><b/><?xml?></a>",
    "<a q=\"x\\\"y\"/>",
    "<a x/>",
    "<a x=y/>",
    "<a x==\"1\"/>",
    "<a =\"1\"/>",
    "<a><b/>",
    "<a>text",
    "<a>text\xFFmore</a>",
    "<a>x</ a >",
    "<a>x</a x>",
    "</a>",
    "<?xml version=1.0?><a/>",
    "<?php version=\"1.0\"?><a/>",
    "<?xml <?xml?>",
    "\xFF<a/>",
    "<a \xFF/>",
    "a b",
    "=",
    "?>",
    // Stopped.
    "<a><b/></a>/",
    "<a/x>",
    "<a ? >",
    "<!doctype a>",
    "<!-a->",
    "<a><![x]></a>",
};

}  // namespace oxa_test
