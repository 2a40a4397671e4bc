#include "real_line/await.h"

#include <chrono>
#include <stdexcept>
#include <thread>

namespace tarvex::tests
{

void Await(const std::function<bool()>& condition, const char* what)
{
    using namespace std::chrono_literals;
    const auto end = std::chrono::steady_clock::now() + 120s;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) throw std::runtime_error(what);
        std::this_thread::sleep_for(10ms);
    }
}

} // namespace tarvex::tests
