#pragma once

// How full another sequencer client's input is. libasound only tells of one's own, the kernel of
// any. Free function, no state; apart from everything else since the kernel's header and
// libasound's do not go together.
namespace sequencerpool
{

// Whether the client's input can take an event with this many further bytes and still be a quarter
// empty. True where the kernel does not say. `descriptor` is an open sequencer's.
bool hasRoom(int descriptor, int client, int bytes);

} // namespace sequencerpool
