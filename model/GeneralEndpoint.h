#ifndef OVELA_GENERAL_ENDPOINT_H
#define OVELA_GENERAL_ENDPOINT_H

#include <set>
#include <string>

#include "Endpoint.h"
#include "ParameterValues.h"

namespace ovela {

// Per-endpoint part of the "general" section.
class GeneralEndpoint : public ParameterValues {
  public:
    explicit GeneralEndpoint(Endpoint endpoint);
    GeneralEndpoint(long long id, Endpoint endpoint);
    long long getId() override;
    const std::set<Parameter>& getValidParams() override;
    Endpoint getEndpoint();
    std::string toString();
    bool equals(GeneralEndpoint& other);
    static const std::set<Parameter> kValidParams;

  private:
    Endpoint mEndpoint;
};

}  // namespace ovela

#endif  // OVELA_GENERAL_ENDPOINT_H
