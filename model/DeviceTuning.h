#ifndef OVELA_DEVICE_TUNING_H
#define OVELA_DEVICE_TUNING_H

#include <string>

namespace ovela {

// Binds a device and its port to a tuning, by the tuning's name.
class DeviceTuning {
  public:
    DeviceTuning(std::string device, std::string port, std::string tuning);
    DeviceTuning(long long id, std::string device, std::string port, std::string tuning);
    virtual long long getId();
    virtual bool isDirty();
    virtual void setDirty(bool dirty);
    virtual ~DeviceTuning();
    std::string getDevice();
    std::string getPort();
    std::string getTuning();
    std::string toString();

  private:
    long long mId;
    std::string mDevice;
    std::string mPort;
    std::string mTuning;
    bool mDirty;
};

}  // namespace ovela

#endif  // OVELA_DEVICE_TUNING_H
