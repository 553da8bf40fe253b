#pragma once

// What an editor asks at its start when another one uses its presets: whether to go on without
// saving. Waits for the answer; closing the box, or Escape, is a no.
bool mayGoOnWithoutSaving();
