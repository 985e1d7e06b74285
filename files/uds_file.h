#pragma once

#include "files/points.h"
#include "files/uds_content.h"
#include "files/uds_fields.h"
#include "files/uds_layout.h"

#include <cstddef>
#include <string>
#include <vector>

namespace ks {

/// Reads a UDS file into a header-field set and a list of points, and writes one back. See docs/formats/uds-1992.md.
///
/// Every failure is thrown as CError with one of the sentences of files/messages.h. After a failed Read nothing is left
/// of an earlier file: fields that were read before the failure hold the values of the refused file, the others their
/// defaults; there are no points.
class CUDSFile {
public:
    virtual ~CUDSFile() = default;

    /// Reads the file at `path` (UTF-8). What is not a regular file cannot be opened. Tag and needed size are looked
    /// at before the rest is read.
    void Read(const std::string& path);

    /// Writes fields and points to `path` (UTF-8). An old file is replaced only when the new one is complete.
    /// Sets NUMFORM and repairs a two-digit component-1 year in the field set.
    void Write(const std::string& path);

    /// The bytes that Write would put on disk.
    std::vector<std::byte> MakeImage();

    CUDSFields& Fields() { return m_content.fields; }
    [[nodiscard]] const CUDSFields& Fields() const { return m_content.fields; }

    /// Points as columns; `z` is empty. The abscissa of point i in a "Y" file is NFP + i times delt, the product
    /// formed in single precision.
    [[nodiscard]] const CPointColumns& Columns() const { return m_content.columns; }
    /// Gives the columns away; the file then holds no points.
    CPointColumns TakeColumns();
    /// @throws CError when `x` and `y` differ in length; the points held before are then kept
    void SetColumns(CPointColumns columns);

    /// The points as a list of shared points, made at each call; kept for programs that link the library.
    [[nodiscard]] CPointList Points() const { return MakePointList(m_content.columns); }

    /// Whether the header of a second vehicle or component is present, read or to be written.
    [[nodiscard]] bool HasSecondComponent() const { return m_content.hasSecondComponent; }
    void SetSecondComponent(bool isPresent) { m_content.hasSecondComponent = isPresent; }

    /// Whether to write big-endian IEEE ("SUN") instead of the machine's own format. Default: no.
    void SetSunOutput(bool isSun) { m_isSunOutput = isSun; }

    /// Name of the number format of the file last read or written: "IEEE", "SUN", "VAX" or "UKNOWN".
    [[nodiscard]] std::string NumberFormatName() const;

    /// What the last Read changed; all zeros before it.
    [[nodiscard]] const CUDSRepairs& Repairs() const { return m_content.repairs; }

protected:
    explicit CUDSFile(const CUDSGeometry& geometry);

private:
    std::vector<std::byte> MakeCheckedImage();

    CUDSGeometry m_geometry;
    CUDSContent m_content;
    bool m_isSunOutput = false;
};

/// The UDS-1992 variant: fixes the record geometry.
class CUDS1992 : public CUDSFile {
public:
    CUDS1992();
};

}  // namespace ks
