#include "common/require.h"

#include <cstdlib>
#include <iostream>

namespace tarvex::fuzz
{

void Broken(std::string_view promise)
{
    std::cerr << "\nDOES NOT HOLD: " << promise << std::endl;
    std::abort();
}

} // namespace tarvex::fuzz
