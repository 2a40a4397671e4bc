#include "survey/comparison/probe.h"

namespace tarvex::survey
{

namespace
{
constexpr double kMillimetres = 1000;
} // namespace

double Millimetres(double counts, const Probe& probe)
{
    return counts / probe.constant * probe.base * kMillimetres;
}

} // namespace tarvex::survey
