// The look at a file before the system's loader maps it.
#pragma once

namespace oxa {

// Tells whether a file is a regular file that holds what its ELF headers promise. The system's
// loader trusts the headers: on a file cut short it touches pages beyond the end, and the process
// dies; on a named pipe it waits for ever. False for anything else,
// and for what cannot be read.
bool is_complete_shared_object(const char* path);

}  // namespace oxa
