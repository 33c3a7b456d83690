#ifndef OVELA_GENERAL_H
#define OVELA_GENERAL_H

#include <set>
#include <string>

#include "ParameterValues.h"

namespace ovela {

// Device-wide settings of the "general" section.
class General : public ParameterValues {
  public:
    General();
    explicit General(long long id);
    long long getId() override;
    const std::set<Parameter>& getValidParams() override;

    std::string toString();
    bool equals(General& other);
    static const std::set<Parameter> kValidParams;
};

}  // namespace ovela

#endif  // OVELA_GENERAL_H
