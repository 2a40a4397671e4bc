#include "core/header_boxes.h"

namespace tarvex
{

void LoadHeaderBoxes(Panel& panel, const BlockHeader& header)
{
    panel.Text3.SetText(header.cliente.View());
    panel.Text4.SetText(header.cantiere.View());
    panel.Text5.SetText(header.tubo.View());
    panel.Text6.SetText(header.profondità.View().substr(0, 3));
    panel.Text13.SetText(header.profondità.View().substr(3, 1));
    panel.Text7.SetText(header.passo.View());
    panel.Text8.SetText(header.guide.View());
    panel.Text9.SetText(header.nord.View());
    panel.Text10.SetText(header.nlet.View());
    panel.Text11.SetText(header.data.View());
    panel.Text12.SetText(header.ora.View());
}

void LoadCalibrationBoxes(Panel& panel, const BlockHeader& header)
{
    panel.Text18.SetText(header.gain1.View());
    panel.Text20.SetText(header.zero1.View());
    panel.Text19.SetText(header.gain2.View());
    panel.Text21.SetText(header.zero2.View());
    panel.Text22.SetText(header.punto.View());
}

void StoreHeaderBoxes(BlockHeader& header, const Panel& panel)
{
    header.cliente = panel.Text3.Text();
    header.cantiere = panel.Text4.Text();
    header.tubo = panel.Text5.Text();
    header.profondità = panel.Text6.Text() + panel.Text13.Text();
    header.passo = panel.Text7.Text();
    header.guide = panel.Text8.Text();
    header.nord = panel.Text9.Text();
    header.nlet = panel.Text10.Text();
    header.data = panel.Text11.Text();
    header.ora = panel.Text12.Text();
}

void StoreCalibrationBoxes(BlockHeader& header, const Panel& panel)
{
    header.gain1 = panel.Text18.Text();
    header.zero1 = panel.Text20.Text();
    header.gain2 = panel.Text19.Text();
    header.zero2 = panel.Text21.Text();
    header.punto = panel.Text22.Text();
}

} // namespace tarvex
