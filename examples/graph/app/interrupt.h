// Stopping on Ctrl-C.
#pragma once

// Makes the first SIGINT or SIGTERM ask the program to stop; a second one ends it at once.
void watch_interrupts();

// Returns the signal that asked to stop, or 0.
int interrupt_signal();

// Throws Stopped when a signal has asked to stop.
void stop_if_interrupted();
