#include "link/operation_end.h"

namespace tarvex
{

void EndOperation(DeviceLink& link, OperatorView& view)
{
    link.ClosePort();
    view.HideWaitIndicator();
}

void EndUnanswered(DeviceLink& link, OperatorView& view)
{
    view.ReportNotConnected();
    EndOperation(link, view);
}

} // namespace tarvex
