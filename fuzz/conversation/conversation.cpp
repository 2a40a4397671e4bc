#include "conversation/conversation.h"

#include "common/require.h"
#include "core/failure.h"
#include "panel/rules/field_rules.h"

namespace tarvex::fuzz
{

namespace
{

using tests::Milliseconds;

/// How long the operator looks at a wait that does not end.
constexpr Milliseconds kPatience = 1'500;

/// A command fails by the one failure, or not at all.
void RunChecked(void (*command)(panel::CommandContext&), panel::CommandContext& context)
{
    try {
        command(context);
    } catch (const RunTimeFailure&) {
        throw;
    } catch (const std::exception& other) {
        Broken(other.what());
    }
}

class UnderWay
{
public:
    explicit UnderWay(int& count) : count_(count) { ++count_; }
    ~UnderWay() { --count_; }
    UnderWay(const UnderWay&) = delete;
    UnderWay& operator=(const UnderWay&) = delete;

private:
    int& count_;
};

/// Every box of the panel that the operator can type into, or a command fills.
std::vector<TextBox*> BoxesOf(ControlPanel& panel)
{
    std::vector<TextBox*> boxes = {&panel.blockNumber, &panel.downloadBlock, &panel.cycleDelay,
                                   &panel.clock.day,   &panel.clock.month,   &panel.clock.year,
                                   &panel.clock.hours, &panel.clock.minutes, &panel.clock.seconds};
    for (TextBox& box : panel.header.things)
        boxes.push_back(&box);
    for (TextBox& box : panel.calibration.things)
        boxes.push_back(&box);
    return boxes;
}

} // namespace

void Conversation::Dialog::ShowOpen(std::string_view /*title*/)
{
    fileName = folders_.HeaderFile();
}

void Conversation::Dialog::ShowSave(std::string_view /*title*/, Fate /*fate*/)
{
    fileName = folders_.HeaderFile();
}

Conversation::Conversation(Choices& choices)
    : choices_(choices),
      folders_(program_.folder.Path(), program_.state, choices),
      unit_(program_, choices),
      boxes_(program_.world, choices),
      port_(program_.port, choices),
      pump_(program_.world),
      dialog_(folders_),
      context_{
          program_.panel,
          Line{port_, pump_, program_.world, boxes_, program_.state, &program_.panel.waitIndicator},
          forms_, dialog_, program_.folder.Path()}
{
    program_.port.keepsHistory = false; // nobody reads it
    if (choices_.Chance(20)) port_.failures = 1 + choices_.Below(30);
}

void Conversation::Run()
{
    constexpr int patience[] = {1, 1, 1, 2, 2, 4, 20};
    const Milliseconds end = kPatience * choices_.OneOf(patience);
    program_.world.EndProgramAt(end);
    PlanOperator();
    PressAnyCommand();
    program_.world.PassTime(end + 1);
    Require(program_.world.Ended() && underWay_ == 0, "closing ends everything");
    RequireSound();
}

void Conversation::PlanOperator()
{
    constexpr Milliseconds moments[] = {0, 1, 2, 5, 50, 100, 400, 599, 600, 1000, 2500, 7000};
    constexpr unsigned deeds[] = {0, 0, 0, 1, 1, 2, 3, 8};
    for (unsigned deed = choices_.OneOf(deeds); deed > 0; --deed)
        program_.world.After(choices_.OneOf(moments) + choices_.Below(8), [this] { Act(); });
}

void Conversation::Act()
{
    if (choices_.Chance(1)) return PressInARow();
    switch (choices_.Below(8)) {
    case 0:
    case 1:
        return PressAnyCommand();
    case 2:
    case 3:
        return Type();
    case 4:
        return LeaveAField();
    case 5:
        return DoHarmToLine();
    case 6:
        return folders_.DoHarm();
    default:
        return folders_.ChooseReports();
    }
}

/// More often than handlers may be inside each other: each press comes into the wait of the one
/// before.
void Conversation::PressInARow()
{
    for (int times = 2 * Handlers::kDeepest; times > 0; --times)
        program_.world.After(times, [this] { PressAnyCommand(); });
}

void Conversation::PressAnyCommand()
{
    const auto commands = panel::CommandTable();
    Press(commands[choices_.Below(static_cast<unsigned>(commands.size()))].run);
}

void Conversation::Press(void (*command)(panel::CommandContext&))
{
    program_.Click([this, command] {
        const UnderWay counted(underWay_);
        Require(underWay_ <= Handlers::kDeepest, "at most a hundred handlers are under way");
        pump_.AllowAHandler();
        RunChecked(command, context_);
    });
}

void Conversation::Type()
{
    const auto boxes = BoxesOf(program_.panel);
    TextBox& box = *boxes[choices_.Below(static_cast<unsigned>(boxes.size()))];
    box.SetText(choices_.HostileText(12));
}

void Conversation::LeaveAField()
{
    const auto rules = panel::FieldRules();
    const auto leave = rules[choices_.Below(static_cast<unsigned>(rules.size()))].leave;
    program_.Click([this, leave] { leave(program_.panel, program_.state, boxes_); });
}

void Conversation::DoHarmToLine()
{
    switch (choices_.Below(5)) {
    case 0:
        program_.port.vanished = true;
        break;
    case 1:
        program_.port.vanished = false;
        break;
    case 2:
        program_.port.refused.insert(1 + static_cast<int>(choices_.Below(4)));
        break;
    case 3:
        program_.port.Receive(choices_.Bytes(120));
        break;
    default:
        program_.world.end.End(0);
    }
}

void Conversation::RequireSound() const
{
    const auto& state = program_.state;
    Require(state.tickCounter >= 0 && state.tickCounter <= 5000, "ticks are counted to 5000");
    Require(state.downloadBlock >= 1 && state.downloadBlock <= 30, "thirty blocks are downloaded");
    Require(state.comPortNumber >= 1 && state.comPortNumber <= 4, "there are four ports");
    for (const TextBox* box : BoxesOf(const_cast<ControlPanel&>(program_.panel)))
        Require(box->Text().size() <= box->MaximumLength(), "a box holds its length at most");
    const auto& indicator = program_.panel.waitIndicator;
    Require(indicator.label.Visible() == indicator.ground.Visible(), "the text has its ground");
    folders_.RequireSound();
}

} // namespace tarvex::fuzz
