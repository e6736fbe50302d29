// Reads and writes GraphML, the format that most programs for graphs have in common.
#include <oxa/sdk/plugin.h>

#include "graphml_reader.h"
#include "graphml_writer.h"

OXA_PLUGIN("GraphML", "1.0", oxa::offer<graph::GraphmlReader>(IID_IOXAFileReader),
           oxa::offer<graph::GraphmlWriter>(IID_IOXAFileWriter))
