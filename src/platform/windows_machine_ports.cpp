#include "platform/machine_ports.h"

#include "core/code_page.h"
#include "core/path_text.h"
#include "platform/windows_instance.h"
#include "platform/windows_system.h"

#include <array>
#include <optional>
#include <string>

// The first of these makes the keys that the others name.
#include <initguid.h>

#include <devguid.h>
#include <devpkey.h>
#include <setupapi.h>

namespace tarvex::platform
{

namespace
{

using Text = std::array<wchar_t, 256>;

constexpr DWORD kBytes = sizeof(Text) - sizeof(wchar_t); // a NUL stays after the longest text

/// A text of the system's as UTF-8.
std::string Utf8(const Text& text)
{
    return path_text::ForLibrary(text.data());
}

/// The ports that are connected, in the system's list of devices.
class ListedPorts
{
public:
    ListedPorts()
        : list_(::SetupDiGetClassDevsW(&GUID_DEVCLASS_PORTS, nullptr, nullptr, DIGCF_PRESENT))
    {
    }
    ~ListedPorts()
    {
        if (list_ != INVALID_HANDLE_VALUE) ::SetupDiDestroyDeviceInfoList(list_);
    }
    ListedPorts(const ListedPorts&) = delete;
    ListedPorts& operator=(const ListedPorts&) = delete;

    std::optional<SP_DEVINFO_DATA> At(DWORD index) const
    {
        SP_DEVINFO_DATA device{};
        device.cbSize = sizeof device;
        if (!::SetupDiEnumDeviceInfo(list_, index, &device)) return std::nullopt;
        return device;
    }

    /// "COM3"; empty for a port that is none of these, a printer's.
    std::string NameOf(SP_DEVINFO_DATA device) const
    {
        Text name{};
        const HKEY key =
            ::SetupDiOpenDevRegKey(list_, &device, DICS_FLAG_GLOBAL, 0, DIREG_DEV, KEY_QUERY_VALUE);
        if (key == INVALID_HANDLE_VALUE) return {};
        DWORD size = kBytes;
        ::RegQueryValueExW(key, L"PortName", nullptr, nullptr, reinterpret_cast<BYTE*>(name.data()),
                           &size);
        ::RegCloseKey(key);
        const std::string text = Utf8(name);
        return text.starts_with("COM") ? text : std::string();
    }

    /// What the adapter calls itself, else what its driver calls it.
    std::string ProductOf(SP_DEVINFO_DATA device) const
    {
        Text product{};
        DEVPROPTYPE type = 0;
        const bool known = ::SetupDiGetDevicePropertyW(
            list_, &device, &DEVPKEY_Device_BusReportedDeviceDesc, &type,
            reinterpret_cast<BYTE*>(product.data()), kBytes, nullptr, 0);
        return known ? Utf8(product) : Property(device, SPDRP_DEVICEDESC);
    }

    std::string MakerOf(SP_DEVINFO_DATA device) const { return Property(device, SPDRP_MFG); }

    std::string SerialNumberOf(SP_DEVINFO_DATA device) const
    {
        Text instance{};
        constexpr auto room = static_cast<DWORD>(std::tuple_size_v<Text>);
        ::SetupDiGetDeviceInstanceIdW(list_, &device, instance.data(), room, nullptr);
        return SerialNumberIn(Utf8(instance));
    }

private:
    std::string Property(SP_DEVINFO_DATA device, DWORD property) const
    {
        Text text{};
        ::SetupDiGetDeviceRegistryPropertyW(list_, &device, property, nullptr,
                                            reinterpret_cast<BYTE*>(text.data()), kBytes, nullptr);
        return Utf8(text);
    }

    HDEVINFO list_;
};

} // namespace

std::vector<MachinePort> ListMachinePorts()
{
    std::vector<MachinePort> ports;
    const ListedPorts listed;
    for (DWORD index = 0; const auto device = listed.At(index); ++index) {
        const std::string name = listed.NameOf(*device);
        if (name.empty()) continue;
        ports.push_back({name, name, listed.ProductOf(*device), listed.MakerOf(*device),
                         listed.SerialNumberOf(*device)});
    }
    return ports;
}

} // namespace tarvex::platform
