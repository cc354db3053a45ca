#include "tools/sample_machine/tiny_program.h"

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string_view>

namespace nrd::sample_machine {

namespace {

constexpr std::size_t dos_header_size = 0x40;
constexpr std::size_t file_alignment = 0x200;
constexpr std::uint32_t section_alignment = 0x1000;

// xor eax, eax; ret: the same bytes for both word sizes.
constexpr std::string_view code = "\x31\xC0\xC3";

/// Appends numbers as the format wants them, lowest byte first.
class image {
public:
    explicit image(bool wide) : wide_(wide) {}

    void u16(std::uint16_t value) { append(value, 2); }
    void u32(std::uint32_t value) { append(value, 4); }
    /// A number as wide as the program's addresses.
    void address(std::uint64_t value) { append(value, wide_ ? 8 : 4); }
    void text(std::string_view bytes) { bytes_ += bytes; }
    void pad_to(std::size_t size) { bytes_.resize(size, '\0'); }

    [[nodiscard]] bool wide() const { return wide_; }
    [[nodiscard]] const std::string& bytes() const { return bytes_; }

private:
    void append(std::uint64_t value, int count)
    {
        for (int i = 0; i < count; ++i) {
            bytes_ += static_cast<char>(static_cast<unsigned char>(value >> (8 * i)));
        }
    }

    bool wide_;
    std::string bytes_;
};

void add_dos_header(image& out)
{
    out.text("MZ");
    out.pad_to(0x3C);
    out.u32(dos_header_size); // where the next header begins
}

void add_file_header(image& out)
{
    constexpr std::uint16_t no_relocations = 0x0001;
    constexpr std::uint16_t executable = 0x0002;
    constexpr std::uint16_t large_addresses = 0x0020;
    constexpr std::uint16_t machine_32bit = 0x0100;
    out.text(std::string_view("PE\0\0", 4));
    out.u16(out.wide() ? 0x8664 : 0x014c); // machine
    out.u16(1);                            // sections
    out.u32(0);                            // time
    out.u32(0);                            // symbols
    out.u32(0);
    out.u16(out.wide() ? 0xF0 : 0xE0); // size of the optional header
    out.u16(no_relocations | executable | (out.wide() ? large_addresses : machine_32bit));
}

void add_optional_header(image& out)
{
    constexpr std::uint16_t windowed = 2;
    constexpr std::uint32_t directories = 16;
    out.u16(out.wide() ? 0x020b : 0x010b); // PE32+ or PE32
    out.u16(0);                            // version of the linker
    out.u32(file_alignment);               // size of the code
    out.u32(0);                            // of the data
    out.u32(0);
    out.u32(section_alignment); // entry point
    out.u32(section_alignment); // the code in memory
    if (!out.wide()) {
        out.u32(2 * section_alignment); // the data in memory
    }
    out.address(0x400000); // base of the image
    out.u32(section_alignment);
    out.u32(file_alignment);
    out.u16(6); // version of the system
    out.u16(0);
    out.u32(0); // version of the image
    out.u16(6); // version of the subsystem
    out.u16(0);
    out.u32(0);
    out.u32(2 * section_alignment); // size of the image
    out.u32(file_alignment);        // and of its headers
    out.u32(0);                     // checksum
    out.u16(windowed);
    out.u16(0);
    for (const std::uint64_t size : {0x100000U, 0x1000U, 0x100000U, 0x1000U}) {
        out.address(size); // stack and heap, each reserved and committed
    }
    out.u32(0);
    out.u32(directories);
    for (std::uint32_t i = 0; i < directories; ++i) {
        out.u32(0);
        out.u32(0);
    }
}

void add_code_section(image& out)
{
    constexpr std::uint32_t code_to_run = 0x60000020;
    out.text(std::string_view(".text\0\0\0", 8));
    out.u32(static_cast<std::uint32_t>(code.size()));
    out.u32(section_alignment); // in memory
    out.u32(file_alignment);    // size in the file
    out.u32(file_alignment);    // place in the file
    out.u32(0);                 // relocations and line numbers
    out.u32(0);
    out.u32(0);
    out.u32(code_to_run);
    out.pad_to(file_alignment);
    out.text(code);
    out.pad_to(2 * file_alignment);
}

} // namespace

std::string tiny_program(int bits)
{
    if (bits != 32 && bits != 64) {
        throw std::invalid_argument("there are no programs of " + std::to_string(bits) + " bits");
    }
    image out(bits == 64);
    add_dos_header(out);
    add_file_header(out);
    add_optional_header(out);
    add_code_section(out);
    return out.bytes();
}

} // namespace nrd::sample_machine
