#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// Number formats of UDS files, for the test's own encoding.
enum class CUdsNumbers { Ieee, Sun, Vax };

/// Bytes of a UDS-1992 file made by hand. It shares no line with the product: offsets are literals, numbers are encoded
/// arithmetically, so that a mistake of the product is not repeated here.
class CUDSBytes {
public:
    explicit CUDSBytes(CUdsNumbers numbers = CUdsNumbers::Ieee) : m_numbers(numbers) {}

    /// Appends a record of 512 zero bytes.
    CUDSBytes& AddRecord();
    /// Appends a record with a tag and up to 125 values.
    CUDSBytes& AddBlock(std::string_view tag, const std::vector<double>& values);
    /// Appends as many blocks as the values need, 125 in each.
    CUDSBytes& AddBlocks(std::string_view tag, const std::vector<double>& values);

    /// Each puts a field at its offset from the start of the file. A text is padded with blanks to `width`.
    CUDSBytes& PutText(std::size_t offset, std::size_t width, std::string_view text);
    CUDSBytes& PutInteger(std::size_t offset, std::int32_t value);
    CUDSBytes& PutReal(std::size_t offset, double value);
    CUDSBytes& PutBytes(std::size_t offset, std::string_view bytes);

    /// Cuts or extends the file with zero bytes.
    CUDSBytes& Resize(std::size_t size);

    [[nodiscard]] const std::string& Text() const { return m_bytes; }
    [[nodiscard]] std::span<const std::byte> Bytes() const { return std::as_bytes(std::span(m_bytes)); }

private:
    CUdsNumbers m_numbers;
    std::string m_bytes;
};

/// What a hand-made file says; the defaults are a good file of three points.
struct CUDSRecipe {
    CUdsNumbers numbers = CUdsNumbers::Ieee;
    std::string fileForm = "X-Y";
    std::int32_t firstPoint = 0;  ///< NFP
    std::int32_t lastPoint = 2;   ///< NLP
    double timeStep = 0.5;        ///< delt
    std::vector<double> x{0.0, 0.5, 1.0};
    std::vector<double> y{1.0, -2.0, 4.0};
    bool hasSecondComponent = false;
};

/// Offset of the curve header in a file of the recipe: 512 or 1024.
std::size_t CurveHeaderOffset(const CUDSRecipe& recipe);

/// Header records of the recipe: tags, FILEVER 1, FILEFORM, NUMFORM, DIMSYS "MET", NFP, NLP, delt, XTYPE "TIME", XUNITS
/// "SECONDS", YTYPE "ACCELERATION", YUNITS "G'S", STATUS "AS MEASURED"; everything else zero bytes.
CUDSBytes UdsHeaders(const CUDSRecipe& recipe);

/// The whole file: headers, then Y blocks, then, for "X-Y", X blocks.
CUDSBytes UdsFile(const CUDSRecipe& recipe);
