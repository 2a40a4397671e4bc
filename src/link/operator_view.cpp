#include "link/operator_view.h"

namespace tarvex
{

OperatorView::OperatorView(const Line& line)
    : pump_(line.pump), messages_(line.messages), indicator_(line.indicator)
{
}

void OperatorView::ShowWaitIndicator()
{
    if (indicator_ != nullptr) indicator_->Show();
    pump_.DoEvents();
}

void OperatorView::HideWaitIndicator()
{
    if (indicator_ != nullptr) indicator_->Hide();
    pump_.DoEvents();
}

bool OperatorView::Confirms(std::string_view question)
{
    return messages_.AskOkCancel(question);
}

void OperatorView::ReportNotConnected()
{
    messages_.Critical("Attention: TAR--VEX not connected");
}

} // namespace tarvex
