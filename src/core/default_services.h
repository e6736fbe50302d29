// What fills a new context.
#pragma once

#include <oxa/IOXAContext.h>

// Builds the default services and adds each to `context`, stopping at the first failure with a
// message. Returns the result of the last step. Declared here for the context, defined above all
// subsystems, in services/.
OXAResult add_default_services(IOXAContext& context);
