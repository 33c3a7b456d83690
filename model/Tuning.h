#ifndef OVELA_TUNING_H
#define OVELA_TUNING_H

#include <map>
#include <set>
#include <string>

#include "Endpoint.h"
#include "ParameterValues.h"

namespace ovela {

// The acoustic tuning of one output device, selected by its name.
class Tuning : public ParameterValues {
  public:
    // A tuning from the file is read-only; only the id-taking constructor
    // makes a writable one.
    Tuning(std::string name, Endpoint endpoint, bool mono);
    Tuning(long long id, std::string name, Endpoint endpoint, bool mono, bool readonly);
    long long getId() override;
    const std::set<Parameter>& getValidParams() override;
    std::string getName();
    Endpoint getEndpoint();
    bool isMono();
    bool isReadonly();
    void setMono(bool mono);
    // Accepts only the names of kEndpNameToEndpoint; any other name leaves
    // the endpoint as it is.
    void setEndpoint(std::string name);
    std::string toString();
    static const std::set<Parameter> kValidParams;
    static const std::map<std::string, Endpoint> kEndpNameToEndpoint;

  private:
    std::string mName;
    Endpoint mEndpoint;
    bool mMono;
    bool mReadonly;
};

}  // namespace ovela

#endif  // OVELA_TUNING_H
