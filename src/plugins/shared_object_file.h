// The look at a file before the system's loader maps it.
#pragma once

namespace oxa {

// Tells whether a file is a regular file that holds what its ELF headers promise. The system's
// loader trusts the headers: on a file cut short it touches pages beyond the end, and the process
// dies; on a named pipe it waits for ever. True as well for what cannot be opened: there the loader
// fails in peace, and it alone knows what "$ORIGIN" in a path stands for.
bool is_complete_shared_object(const char* path);

}  // namespace oxa
