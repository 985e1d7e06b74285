#pragma once

#include "files/uds_fields.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>

namespace ks {

/// The three header records of a UDS-1992 file.
enum class CUDSRecord { File, SecondComponent, Curve };

/// How a character field is reached.
class CUDSTextAccess {
public:
    const std::string& (CUDSFields::*get)() const;
    void (CUDSFields::*set)(std::string);
    const char* fallback;
};

/// How an integer field is reached.
class CUDSIntegerAccess {
public:
    std::int32_t (CUDSFields::*get)() const;
    void (CUDSFields::*set)(std::int32_t);
    std::int32_t fallback;
};

/// How a real field is reached; the default of every real is 0.
class CUDSRealAccess {
public:
    float (CUDSFields::*get)() const;
    void (CUDSFields::*set)(float);
};

/// One header field: where it is, how wide it is, and how it is read from and written to a field set.
struct CUDSField {
    CUDSRecord record;
    std::string_view name;
    int width;   ///< bytes in the file; 4 for integers and reals
    int offset;  ///< bytes from the start of its record
    std::variant<CUDSTextAccess, CUDSIntegerAccess, CUDSRealAccess> access;
};

/// Every header field in file order. Reader, writer, JSON and viewer work from this table.
std::span<const CUDSField> UdsFieldTable();

/// The row of a field, by its name; null for a name that no field has.
const CUDSField* FindUdsField(std::string_view name);

/// Bytes from the start of the record to the end of its last field: 380, 186 and 444.
int UdsRecordEnd(CUDSRecord record);

}  // namespace ks
