#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

namespace ks {

/// Byte order of the integers of a file or machine. The numbers are those of the format.
enum class CByteOrder { BigEndian = 1, LittleEndian = 2, Unknown = 3 };

/// Format of the reals of a file or machine. The numbers are those of the format.
enum class CNumberFormat { Ieee = 1, Sun = 2, Vax = 3, Unknown = 4 };

/// Four bytes in file order.
using CFourBytes = std::array<std::byte, 4>;

/// One real converted between number formats; equal formats leave it unchanged, any pair with a format other than
/// the three known ones gives zero bytes. From and to VAX, an exponent byte of 0 or 128 gives 0. From IEEE to VAX, too
/// large a value becomes the largest magnitude of its sign; the conversion from SUN tests another exponent byte for
/// that, 129 instead of 127.
CFourBytes ConvertReal(CFourBytes value, CNumberFormat from, CNumberFormat to);

/// The same for a block of reals in place; its size is a multiple of 4 bytes.
void ConvertReals(std::span<std::byte> block, CNumberFormat from, CNumberFormat to);

/// One integer converted between byte orders; equal orders leave it unchanged, an unknown order gives zero bytes.
CFourBytes ConvertInteger(CFourBytes value, CByteOrder from, CByteOrder to);

/// "IEEE", "SUN", "VAX", or "UKNOWN" for any other code.
std::string_view NumberFormatName(CNumberFormat format);

/// How a file or a machine stores numbers.
struct CNumberFormats {
    CByteOrder byteOrder = CByteOrder::Unknown;
    CNumberFormat numberFormat = CNumberFormat::Unknown;
};

/// The formats that a NUMFORM text names; Unknown for any other text.
CNumberFormats FormatsOf(std::string_view numform);

/// This machine's own formats, found by looking at how a known integer and a known real are stored.
CNumberFormats ProbeMachineFormats();

/// The probe's decision for given bytes of the integer 25478 and of the real 1.153e-6. When the real matches no
/// format, the byte order (not the number format) becomes Unknown; kept, since callers test the byte order.
CNumberFormats FormatsFromProbe(CFourBytes integerBytes, CFourBytes realBytes);

}  // namespace ks
