#include "survey/json.h"

#include "survey/json_values.h"

namespace tarvex::survey
{

std::string JsonOf(const Survey& survey)
{
    return Printed(Value(survey));
}

} // namespace tarvex::survey
