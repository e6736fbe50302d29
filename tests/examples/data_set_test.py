"""Compares the data set with the copy that networkx carries; labels there have no blanks or accents."""
import shlex
import sys
import unicodedata

import networkx


def plain(label):
    parts = unicodedata.normalize("NFD", label)
    return "".join(c for c in parts if c != " " and not unicodedata.combining(c)).lower()


ours = {}
with open(sys.argv[1], encoding="utf-8") as file:
    for line in file:
        if line.startswith("#"):
            continue
        source, target, weight = shlex.split(line)
        pair = frozenset((plain(source), plain(target)))
        assert pair not in ours, f"twice: {line}"
        ours[pair] = float(weight)

theirs = {
    frozenset((plain(source), plain(target))): float(data["weight"])
    for source, target, data in networkx.les_miserables_graph().edges(data=True)
}
assert len(ours) == 254 and len(set().union(*ours)) == 77
assert ours == theirs, set(ours.items()) ^ set(theirs.items())
