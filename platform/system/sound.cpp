#include "platform/system/sound.h"

namespace sys {

std::function<void()>& alertSound() {
    static std::function<void()> sound;
    return sound;
}

void SoundAlert() {
    if (alertSound()) alertSound()();
}

}  // namespace sys
