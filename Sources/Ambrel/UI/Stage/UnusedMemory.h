#pragma once

namespace ambrel {

/// Gives back to the system what is kept only for views that may come, once the last of them is gone: pictures, fonts,
/// free blocks of the heap, and the resident pages of code. All of it comes back when it is used again. Main thread
/// only.
void giveBackUnusedMemory();

} // namespace ambrel
