#ifndef OVELA_PROFILE_ENDPOINT_H
#define OVELA_PROFILE_ENDPOINT_H

#include <set>
#include <string>

#include "Endpoint.h"
#include "ParameterValues.h"

namespace ovela {

// The settings of one profile for one output endpoint.
class ProfileEndpoint : public ParameterValues {
  public:
    ProfileEndpoint(int profileId, Endpoint endpoint);
    ProfileEndpoint(long long id, int profileId, Endpoint endpoint);
    long long getId() override;
    const std::set<Parameter>& getValidParams() override;
    int getProfileId();
    Endpoint getEndpoint();
    std::string toString();
    bool equals(ProfileEndpoint& other);
    static const std::set<Parameter> kValidParams;

  private:
    int mProfileId;
    Endpoint mEndpoint;
};

}  // namespace ovela

#endif  // OVELA_PROFILE_ENDPOINT_H
