"""Sends a graph from networkx through oxa-graph and back: graphml_networkx_test.py PROGRAM PLUGINS."""
import os
import random
import subprocess
import sys
import tempfile

import networkx

program, plugins = sys.argv[1:]
random.seed(7)
labels = ["plain", "with blank", "<&>\"'", "\u00dc\u4e2d\U0001f600", "\\", "]]>", "a=\"b\"", "1.5"]
labels += [f"node {number}" for number in range(40)]
texts = labels + ["  around  ", "two\nlines", "\ttab"]

graph = networkx.Graph(title="T & <t>", year=1862)
for label in labels:
    graph.add_node(label, text=random.choice(texts), number=random.randrange(-2**62, 2**62),
                   real=random.uniform(-1e9, 1e9), old=random.random() < 0.5)
    if random.random() < 0.5:
        graph.nodes[label]["seldom"] = random.random() * 10.0 ** random.randrange(-300, 300)
for _ in range(90):
    graph.add_edge(random.choice(labels), random.choice(labels), weight=random.random(),
                   note=random.choice(texts))


def plain(found):
    """Nodes, edges and all values, without the places that oxa-graph has given to nodes."""
    nodes = {node: {key: value for key, value in data.items() if key not in "xy"}
             for node, data in found.nodes(data=True)}
    edges = {frozenset(ends[:2]): ends[2] for ends in found.edges(data=True)}
    values = {key: value for key, value in found.graph.items() if not key.endswith("_default")}
    return nodes, edges, values


with tempfile.TemporaryDirectory() as folder:
    theirs = os.path.join(folder, "theirs.graphml")
    ours = os.path.join(folder, "ours.graphml")
    for write in networkx.write_graphml_xml, networkx.write_graphml:  # with lxml if it is there
        write(graph, theirs)
        with open(theirs, encoding="utf-8") as file:
            content = file.read().replace("<graph ", "<!-- a < comment > -->\n<graph ")
        with open(theirs, "w", encoding="utf-8") as file:
            file.write(content)
        subprocess.run([program, "-q", "--plugins", plugins, "--algorithms", "degree", "--layout",
                        "circle", theirs, ours], check=True)
        back = networkx.read_graphml(ours)
        degrees = dict(back.nodes(data="degree"))
        assert degrees == dict(graph.degree()), degrees
        assert all(isinstance(data["x"], float) for _, data in back.nodes(data=True))
        for _, data in back.nodes(data=True):
            del data["degree"]
        for sent, received in zip(plain(graph), plain(back)):
            assert sent == received, (sent, received)
