#ifndef OVELA_PARAMETER_VALUES_H
#define OVELA_PARAMETER_VALUES_H

#include <map>
#include <set>
#include <string>
#include <vector>

#include "Parameter.h"

namespace ovela {

// Base of every model entity that carries tuning values: an id, a dirty flag
// and the values keyed by parameter. The map iterates in Parameter value order,
// which is the order in which the packed arrays list their entries.
class ParameterValues {
  public:
    virtual long long getId() = 0;
    virtual bool isDirty();
    virtual void setDirty(bool dirty);
    virtual ~ParameterValues();
    // The parameters that this kind of entity is meant to carry. set() does not
    // enforce it: the reader decides what goes where.
    virtual const std::set<Parameter>& getValidParams() = 0;

    // Stores a copy of `list` under `param`, replacing any earlier list, and
    // marks the entity dirty.
    void set(Parameter param, const std::vector<int>& list);
    // The same, taking the list over instead of copying it.
    void set(Parameter param, std::vector<int>&& list);

    // One "name=v1,v2,...,\n" line per parameter in value order. ieq_id is
    // never printed: an IEQ preset prints its type in its own header line.
    std::string valuesToString();

    std::map<Parameter, std::vector<int>> values;

  protected:
    ParameterValues(long long id, bool dirty);

    // "id=<id>\n", then `fields`, then the value lines: the text form shared by
    // every entity.
    std::string describe(const std::string& fields);

    // True when both maps hold the same parameters with equal lists.
    bool sameValues(const ParameterValues& other) const;

    long long mId;
    bool mDirty;
};

}  // namespace ovela

#endif  // OVELA_PARAMETER_VALUES_H
