// The smallest effect that uses the library as an effect does: it receives
// a profile and an endpoint's tuning through a cache, and walks an array
// itself. It includes the exported headers only.

#include <ovela/AudioDevices.h>
#include <ovela/Endpoint.h>
#include <ovela/IEffectKyr.h>
#include <ovela/KyrParameterId.h>
#include <ovela/OvlProfileId.h>
#include <ovela/ProfileParamArray.h>
#include <ovela/ProfileParamCache.h>
#include <ovela/ProfileParamParser.h>

#include <vector>

namespace {

class ExampleEffect : public ovela::IEffectKyr {
  public:
    void setParameter(int device, ovela::KyrParameterId code, const int* values,
                      int count) override {
        mReceived += device == ovela::kDeviceAll && code == ovela::kyrCode("vol") ? count : 1;
        (void)values;
    }
    int commitParameters(int) override { return 0; }

    int mReceived = 0;
};

}  // namespace

// Sends profile 3 and the headphone's own tuning, then counts the entries of
// the general array by walking it.
extern "C" int ovelaExampleEffectRun() {
    ExampleEffect effect;
    ovela::ProfileParamCache cache;
    cache.setProfile(3, &effect);
    cache.setEndpointTuning(ovela::ENDPOINT_HEADPHONE, "headphone", &effect, true);

    ovela::ProfileParamArray& store = ovela::ProfileParamArray::getInstance();
    const ovela::OvlProfileId general = ovela::kGeneralProfileId;
    std::vector<char> bytes(store.getProfileParamsSize(general));
    store.getProfileParams(general, bytes.data());
    ovela::ProfileParamParser parser(bytes.data(), static_cast<int>(bytes.size()));
    int entries = 0;
    if (parser.validate() && parser.begin()) {
        while (parser.next()) {
            ++entries;
        }
    }
    return effect.mReceived + entries;
}
