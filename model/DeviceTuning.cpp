#include "DeviceTuning.h"

#include <utility>

namespace ovela {

DeviceTuning::DeviceTuning(std::string device, std::string port, std::string tuning)
    : DeviceTuning(-1, std::move(device), std::move(port), std::move(tuning)) {}

DeviceTuning::DeviceTuning(long long id, std::string device, std::string port, std::string tuning)
    : mId(id),
      mDevice(std::move(device)),
      mPort(std::move(port)),
      mTuning(std::move(tuning)),
      mDirty(true) {}

DeviceTuning::~DeviceTuning() = default;

long long DeviceTuning::getId() {
    return mId;
}

bool DeviceTuning::isDirty() {
    return mDirty;
}

void DeviceTuning::setDirty(bool dirty) {
    mDirty = dirty;
}

std::string DeviceTuning::getDevice() {
    return mDevice;
}

std::string DeviceTuning::getPort() {
    return mPort;
}

std::string DeviceTuning::getTuning() {
    return mTuning;
}

std::string DeviceTuning::toString() {
    return "id=" + std::to_string(mId) + "\ndevice=" + mDevice + "\nport=" + mPort +
           "\ntuning=" + mTuning;
}

}  // namespace ovela
