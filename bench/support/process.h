// What a process is like in which figures are comparable.
#pragma once

#include <cstddef>

namespace bench {

// The time that this thread has run for, in the kernel too: that of other processes is no part of
// it.
double processor_seconds();

// Makes the process one like a host: it has had a second thread, since which malloc and the counts
// of std::shared_ptr are slower, and what one case frees does not change how the next one gets its
// memory. Returns true.
bool like_a_host();

// Takes fresh memory and gives it back. A virtual machine may have returned what was free to its
// host, and gets it again as slowly as ten times the time that clearing it takes; this way nobody
// whose memory is compared waits for that.
void back_with_memory(std::size_t bytes);

}  // namespace bench
