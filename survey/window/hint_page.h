#pragma once

#include <QWidget>

#include <filesystem>
#include <functional>
#include <vector>

class QLabel;

namespace tarvex::survey
{

/// What a window without a survey shows: what can be done about it.
class HintPage : public QWidget
{
public:
    /// Its two buttons call these.
    HintPage(const std::function<void()>& openReports, const std::function<void()>& openFolder);

    /// Says that there are no surveys in these folders; with none of them, only that none is here.
    void Say(const std::vector<std::filesystem::path>& folders);

private:
    QLabel* AddText();

    QLabel* where_;
};

} // namespace tarvex::survey
