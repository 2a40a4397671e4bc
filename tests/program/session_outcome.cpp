#include "program/session_outcome.h"

#include "unit/escape.h"

#include <QAbstractButton>
#include <QLineEdit>

#include <fstream>
#include <iterator>

namespace tarvex::tests
{

namespace
{

std::string Quoted(const std::string& text)
{
    return "\"" + unit::Escape(text) + "\"";
}

/// Escaped bytes with each long run of NUL bytes as one of them and its length.
std::string Legible(const std::string& bytes)
{
    std::string text;
    for (std::size_t at = 0; at < bytes.size();) {
        const auto end = std::min(bytes.find_first_not_of('\0', at), bytes.size());
        if (end - at > 3) {
            text += "\\x00*" + std::to_string(end - at) + " ";
            at = end;
        } else {
            text += unit::Escape(bytes.substr(at++, 1));
        }
    }
    return text;
}

/// The length of a file's records, by its name.
std::size_t RecordLength(const std::string& name)
{
    if (name.ends_with("intestazione")) return 77;
    return name.ends_with("-dat.dat") ? 42 : 113;
}

std::string RecordsOf(const std::string& name, const std::string& before, const std::string& after)
{
    const auto length = RecordLength(name);
    std::string text;
    for (std::size_t at = 0; at < after.size(); at += length) {
        const auto record = after.substr(at, length);
        if (at < before.size() && before.substr(at, length) == record) continue;
        text += "  " + std::to_string(at / length + 1) + " " + Legible(record) + "|\n";
    }
    return text;
}

} // namespace

PanelState StateOf(const QWidget& panel)
{
    PanelState state;
    for (const auto* box : panel.findChildren<QLineEdit*>())
        state[box->objectName().toStdString()] = Quoted(box->text().toStdString());
    for (const auto* button : panel.findChildren<QAbstractButton*>())
        state[button->objectName().toStdString()] = button->isEnabled() ? "enabled" : "disabled";
    for (const char* name : {"Label34", "Shape1"}) {
        const auto* control = panel.findChild<QWidget*>(QLatin1String(name));
        state[name] = control->isVisibleTo(&panel) ? "shown" : "hidden";
    }
    state.erase("");
    return state;
}

FolderState StateOf(const std::filesystem::path& folder)
{
    FolderState state;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        if (!entry.is_regular_file() || entry.is_symlink()) continue;
        std::ifstream file(entry.path(), std::ios::binary);
        state[entry.path().lexically_relative(folder).string()].assign(
            std::istreambuf_iterator<char>(file), {});
    }
    return state;
}

std::string ChangesOnPanel(const PanelState& before, const PanelState& after)
{
    std::string text;
    for (const auto& [name, value] : after)
        if (!before.contains(name) || before.at(name) != value) text += name + " " + value + "\n";
    return text;
}

std::string ChangesInFolder(const FolderState& before, const FolderState& after)
{
    std::string text;
    for (const auto& [name, bytes] : after) {
        const auto old = before.find(name);
        if (old != before.end() && old->second == bytes) continue;
        text += "file " + name + ", " + std::to_string(bytes.size()) + " bytes\n" +
                RecordsOf(name, old == before.end() ? "" : old->second, bytes);
    }
    for (const auto& [name, bytes] : before)
        if (!after.contains(name)) text += "file " + name + " is gone\n";
    return text;
}

} // namespace tarvex::tests
