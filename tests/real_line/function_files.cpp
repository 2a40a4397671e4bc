#include "real_line/function_files.h"

#include <cerrno>
#include <fcntl.h>
#include <linux/usb/ch9.h>
#include <linux/usb/functionfs.h>
#include <string>
#include <system_error>
#include <unistd.h>

namespace tarvex::tests
{

namespace
{

struct [[gnu::packed]] Description {
    usb_functionfs_descs_head_v2 head;
    __le32 count;
    usb_interface_descriptor interface;
    usb_endpoint_descriptor_no_audio in;
    usb_endpoint_descriptor_no_audio out;
};

usb_endpoint_descriptor_no_audio Endpoint(int address)
{
    usb_endpoint_descriptor_no_audio endpoint{};
    endpoint.bLength = sizeof endpoint;
    endpoint.bDescriptorType = USB_DT_ENDPOINT;
    endpoint.bEndpointAddress = static_cast<__u8>(address);
    endpoint.bmAttributes = USB_ENDPOINT_XFER_BULK;
    endpoint.wMaxPacketSize = kPacket;
    return endpoint;
}

usb_interface_descriptor Interface()
{
    usb_interface_descriptor interface {
    };
    interface.bLength = sizeof interface;
    interface.bDescriptorType = USB_DT_INTERFACE;
    interface.bNumEndpoints = 2;
    interface.bInterfaceClass = USB_CLASS_VENDOR_SPEC;
    interface.bInterfaceSubClass = 0xFF;
    interface.bInterfaceProtocol = 0xFF;
    return interface;
}

Description FunctionDescription()
{
    Description description{};
    description.head.magic = FUNCTIONFS_DESCRIPTORS_MAGIC_V2;
    description.head.length = sizeof description;
    description.head.flags = FUNCTIONFS_HAS_FS_DESC | FUNCTIONFS_ALL_CTRL_RECIP;
    description.count = 3;
    description.interface = Interface();
    description.in = Endpoint(USB_DIR_IN | 1);
    description.out = Endpoint(USB_DIR_OUT | 2);
    return description;
}

usb_functionfs_strings_head NoNames()
{
    usb_functionfs_strings_head names{};
    names.magic = FUNCTIONFS_STRINGS_MAGIC;
    names.length = sizeof names;
    return names;
}

[[noreturn]] void Fail(const std::string& file)
{
    throw std::system_error(errno, std::generic_category(), file);
}

unit::Descriptor Opened(const char* name)
{
    const std::string file = std::string("/dev/adapter/") + name;
    unit::Descriptor opened(::open(file.c_str(), O_RDWR | O_CLOEXEC));
    if (opened.Number() < 0) Fail(file);
    return opened;
}

template <class Part>
void WritePart(const unit::Descriptor& file, const Part& part)
{
    if (::write(file.Number(), &part, sizeof part) < 0) Fail("the adapter's description");
}

} // namespace

FunctionFiles::FunctionFiles() : control(Opened("ep0"))
{
    WritePart(control, FunctionDescription());
    WritePart(control, NoNames());
    in = Opened("ep1"); // there are none before
    out = Opened("ep2");
}

} // namespace tarvex::tests
