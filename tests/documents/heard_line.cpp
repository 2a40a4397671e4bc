#include "documents/heard_line.h"

#include "unit/escape.h"

namespace tarvex::tests
{

HeardLine::HeardLine(TestProgram& program, unit::Memory memory) : unit(std::move(memory))
{
    program.port.unit = [this, &program](std::string_view bytes) { Hear(program, bytes); };
}

void HeardLine::Hear(TestProgram& program, std::string_view bytes)
{
    const Milliseconds now = program.world.Now();
    said.push_back({now, false, std::string(bytes)});
    for (const auto& reply : unit.Feed(bytes, std::chrono::milliseconds(now))) {
        program.world.After(1, [this, &program, answer = reply.bytes] {
            said.push_back({program.world.Now(), true, answer});
            program.port.Receive(answer);
        });
    }
}

std::vector<std::string> HeardLine::Lines() const
{
    std::vector<std::string> lines;
    for (const Said& words : said)
        lines.push_back((words.byUnit ? "unit     " : "manager  ") + unit::Escape(words.bytes));
    return lines;
}

} // namespace tarvex::tests
