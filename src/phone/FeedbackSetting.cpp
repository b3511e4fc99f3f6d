#include "phone/FeedbackSetting.h"

#include "base/SettingsStore.h"

namespace feedback {

bool ButtonFeedbackWanted() {
    return VibratesOn(settings::Read(settings::kButtonFeedback));
}

}  // namespace feedback
