// The sound by which a form draws the operator's ear: a seam like those of seams.h. In the running program it
// is the toolkit's own (platform/controls installs it).
#pragma once

#include <functional>

namespace sys {

/// The one in use; empty is silent. Tests replace it and put it back.
std::function<void()>& alertSound();

/// Sounds once and does not wait.
void SoundAlert();

}  // namespace sys
