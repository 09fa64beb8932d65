#include "writers/SizeFormat.h"

#include <array>
#include <cstdint>
#include <exception>

#include "writers/Writer.h"

namespace {

struct Unit {
    const wchar_t* name;
    uint64_t limit;      // the dynamic styles use the unit for sizes below this
    uint32_t nextLower;  // right shift that turns one unit into 1024
    uint32_t whole;      // right shift that turns one unit into 1
};

constexpr uint64_t BytesLimit = uint64_t{1} << 10;

constexpr std::array<Unit, 4> Units = {{
    {L" KiB", uint64_t{1} << 20, 0, 10},
    {L" MiB", uint64_t{1} << 30, 10, 20},
    {L" GiB", uint64_t{1} << 40, 20, 30},
    {L" TiB", uint64_t{1} << 50, 30, 40},
}};

void WriteBytes(Writer& writer, const uint64_t& size) {
    writer.stream << size;
    writer.WriteText(L" Bytes");
}

// A value for display: loses the bits below the next lower unit and those beyond the precision of a float.
void WriteDecimal(Writer& writer, uint64_t size, const Unit& unit) {
    const float units = static_cast<float>(size >> unit.nextLower) * 0.0009765625f;
    writer.stream << static_cast<double>(units);
    writer.WriteText(unit.name);
}

void WriteWhole(Writer& writer, uint64_t size, const Unit& unit) {
    writer.stream << (size >> unit.whole);
    writer.WriteText(unit.name);
}

// The unit is chosen by the exact size, before rounding. There is none for a pebibyte or more.
template <void (*Write)(Writer&, uint64_t, const Unit&)>
void WriteDynamic(Writer& writer, const uint64_t& size) {
    if (size < BytesLimit) {
        WriteBytes(writer, size);
        return;
    }
    for (const Unit& unit : Units) {
        if (size < unit.limit) {
            Write(writer, size, unit);
            return;
        }
    }
}

template <size_t UnitIndex>
void WriteFixed(Writer& writer, const uint64_t& size) {
    WriteDecimal(writer, size, Units[UnitIndex]);
}

// The index is the value of the style.
constexpr std::array<SizeWriter, 7> SizeWriters = {
    WriteDynamic<WriteDecimal>,
    WriteDynamic<WriteWhole>,
    WriteBytes,
    WriteFixed<0>,
    WriteFixed<1>,
    WriteFixed<2>,
    WriteFixed<3>,
};

}  // namespace

SizeWriter MakeSizeWriter(SizeStyle style) {
    const auto value = static_cast<uint32_t>(style);
    if (value >= SizeWriters.size())
        throw std::exception();
    return SizeWriters[value];
}
