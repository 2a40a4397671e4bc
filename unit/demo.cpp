#include "unit/survey.h"

namespace tarvex::unit
{

Memory DemoMemory()
{
    auto memory = BlankMemory();
    FillBlock(
        memory, 1,
        {{"DELVALLE", "FRANA 02", "T01", "0300", "0", "2", "+045", "03", "120426", "093015"}, 1});
    FillBlock(
        memory, 2,
        {{"DELVALLE", "FRANA 02", "T02", "0400", "1", "4", "-010", "03", "120426", "111540"}, 2});
    FillBlock(memory, 3,
              {{"COMUNE", "DIGA 1", "I3", "1000", "0", "2", "+270", "11", "130426", "081200"}, 3});
    return memory;
}

} // namespace tarvex::unit
