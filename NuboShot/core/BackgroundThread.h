#pragma once

namespace nubo {

// Makes the calling thread, and the threads it starts from now on, yield to
// the rest of the process when the cores are busy: a long encode on a
// worker must not hold up the user interface's thread. On Linux this raises
// the thread's own nice value by a few steps (threads inherit it); once
// lowered it stays lowered, so call it only on threads that do background
// work for good. Does nothing where the system has no per-thread priority.
void lowerCurrentThreadPriority();

} // namespace nubo
