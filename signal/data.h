#pragma once

#include "files/points.h"
#include "signal/channel_class.h"
#include "signal/column.h"
#include "signal/data_fields.h"
#include "signal/record_array.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace ks {

class CUDSFile;

/// The signal record: one curve of a crash test as equally long arrays X, Y and Z with its header fields, and the
/// operations on it.
///
/// After every successful setter of the arrays and after every operation the arrays are equally long. Failures are
/// thrown as CError with the sentence that the user reads; checks run before any array changes, except where a
/// failure inside SetData leaves the record partly changed. A copy does not change when its original does, but shares
/// its arrays as long as both have the same values (see CColumn): copying and cutting a record costs nothing however
/// long it is.
///
/// "Point count" is the number of Y values; `Count` is what NFP and NLP say. They may differ.
///
/// What is current when:
/// - `Count` and the point count: always.
/// - The extrema: after every successful setter of the arrays (SetData, SetColumns, SetPoints, SetPoint, loading) and
///   after every operation. Not after GenerateTime or a failed SetData: UpdateLimits must follow. They are found when
///   asked for, once for all records that share an array.
/// - StartTime and EndTime: after the same, and after UpdateLimits; setting a header field (NFP, NLP, delt) does not
///   change them.
///
/// Const member functions only read, so several threads may call them on one record while none changes it.
class CData : public CDataFields {
public:
    // Arrays.

    /// Replaces the arrays. An empty `x` keeps the stored X, or builds it from NFP, NLP and delt; an empty `z` keeps
    /// a stored Z that is as long as Y, else gives zeros.
    /// @throws CError "No X, Y or Z Siganl Data.", "No x signal data and delt is zero.", "No x signal data, NFP and NLP
    ///         are zero.\nSet x signal data or set NFP and NLP", "X and Y Counts are different", "No Y Signal Data",
    ///         "x != y signal data", "x != y != z signal data"; arrays replaced before the failure stay replaced
    void SetData(std::vector<double> x, std::vector<double> y, std::vector<double> z);
    /// @throws CError "No X or Y Signal Data" when both are empty, else as the full form with an empty z
    void SetData(std::vector<double> x, std::vector<double> y);
    /// @throws CError "No Y Signal Data" when y is empty, else as the full form with empty x and z
    void SetData(std::vector<double> y);
    /// The full form of SetData for values that may be shared with other records.
    void SetColumns(CColumn x, CColumn y, CColumn z);

    /// Replaces the arrays by the points' coordinates; kept for programs that link the library.
    /// @throws CError "No Information." for an empty list
    void SetPoints(const CPointList& points);
    /// The same from columns; an empty `z` column means zeros.
    /// @throws CError also "x != y != z signal data"; nothing has changed then
    void SetPoints(CPointColumns columns);

    /// Overwrites sample i of X and Y; the extrema follow. The next call for an extremum looks at all values again.
    /// Kept for programs that link the library.
    /// @throws std::runtime_error " Index Out of Bounds..." when i is not below both lengths
    void SetPoint(std::size_t i, double x, double y);

    [[nodiscard]] const CColumn& GetX() const { return m_x.Values(); }
    [[nodiscard]] const CColumn& GetY() const { return m_y.Values(); }
    [[nodiscard]] const CColumn& GetZ() const { return m_z.Values(); }
    [[nodiscard]] std::size_t GetPointCount() const { return m_y.Values().size(); }

    // Derived values.

    /// Number of samples by the point numbers: 0 when NFP and NLP are both 0 or NFP > NLP, else NLP - NFP + 1,
    /// saturated to 32 bits. Always current.
    [[nodiscard]] std::int32_t GetCount() const;

    /// Rebuilds X as delt * (NFP + i) for i = 0 ... Count - 1; its length may then differ from that of Y.
    void GenerateTime();

    /// Makes extrema, StartTime and EndTime current. The extrema of an empty array do not change.
    void UpdateLimits();

    [[nodiscard]] double GetXMax() const { return m_x.Extrema().maximum; }
    [[nodiscard]] double GetXMin() const { return m_x.Extrema().minimum; }
    [[nodiscard]] double GetYMax() const { return m_y.Extrema().maximum; }
    [[nodiscard]] double GetYMin() const { return m_y.Extrema().minimum; }
    // The extrema of Z are kept for programs that link the library.
    [[nodiscard]] double GetZMax() const { return m_z.Extrema().maximum; }
    [[nodiscard]] double GetZMin() const { return m_z.Extrema().minimum; }
    [[nodiscard]] double GetStartTime() const { return m_startTime; }  ///< NFP * delt
    [[nodiscard]] double GetEndTime() const { return m_endTime; }      ///< NLP * delt

    // Descriptors outside the header.

    /// Stores the canonical long form of a status code or word, upper-cased; see signal/data_status.h.
    void SetDataStatus(std::string_view text);
    [[nodiscard]] const std::string& GetDataStatus() const { return m_dataStatus; }

    /// Physical quantity of Y after an operation, set by Integrate. The header's YTYPE stays as it is.
    [[nodiscard]] const std::string& GetYQuantity() const { return m_yQuantity; }
    void SetYQuantity(std::string text) { m_yQuantity = std::move(text); }

    /// Channel frequency class of SAE J211: one of kChannelClasses, or kUnknownChannelClass.
    [[nodiscard]] std::int32_t GetCFCClass() const { return m_cfcClass; }
    void SetCFCClass(std::int32_t value) { m_cfcClass = value; }

    [[nodiscard]] bool IsModified() const { return m_isModified; }
    void SetModified(bool isModified) { m_isModified = isModified; }

    /// Path of the file that the record was loaded from; empty for a record made otherwise.
    [[nodiscard]] const std::string& GetSourcePath() const { return m_sourcePath; }
    void SetSourcePath(std::string text) { m_sourcePath = std::move(text); }
    /// Number format of that file: "IEEE", "SUN" or "VAX"; empty for a record made otherwise.
    [[nodiscard]] const std::string& GetSourceFormat() const { return m_sourceFormat; }
    void SetSourceFormat(std::string text) { m_sourceFormat = std::move(text); }
    /// "ASCII File" for a record read from an ASCII point file, else empty. A text to keep with the record; what
    /// follows from a file's format is a property of the format, see signal/formats/signal_format.h.
    [[nodiscard]] const std::string& GetFileType() const { return m_fileType; }
    void SetFileType(std::string text) { m_fileType = std::move(text); }

    /// Four further reals, index 0 to 3. Filtering resets the first; loading puts injury value 5 into the fourth.
    [[nodiscard]] double GetFurtherReal(std::size_t index) const { return m_furtherReals.at(index); }
    void SetFurtherReal(std::size_t index, double value) { m_furtherReals.at(index) = value; }

    /// Whether the header of a second vehicle or component travels with the record from load to save.
    [[nodiscard]] bool HasSecondComponent() const { return m_hasSecondComponent; }
    void SetSecondComponent(bool isPresent) { m_hasSecondComponent = isPresent; }

    // Files.

    /// Reads a UDS file (UTF-8 path) into this record. Throws what the reader throws; the record is then unchanged.
    void LoadUDS(const std::string& path);
    /// Writes this record as a UDS file in the machine's number format.
    /// @throws CError with the text of any exception of the writer, or a sentence of its own when memory runs out
    void SaveUDS(const std::string& path) const;

    /// Takes points, header fields and number format from a file object; DataStatus follows STATUS, CFCClass
    /// follows the recorded frequencies, source path and file type become empty.
    /// @throws CError "No Information." for a file object without points; nothing has changed then
    void FromUDSFields(const CUDSFile& file);
    void FromUDSFields(CUDSFile&& file);  ///< the same; the points are moved
    /// Copies the record into a file object, doubles narrowed; FILEID becomes "UDS-1992", STATUS the data status, and
    /// FILEFORM "X-Y" when delt is 0.
    /// @throws CError when X and Y differ in length
    void ToUDSFields(CUDSFile& file) const;

    // Operations. Each returns true, runs the limits update and sets Modified.

    /// Linear interpolation onto the multiples of `dt` (X units) within the sampled range; Z becomes zeros.
    /// @throws CError "Requested Time step <= 0", "Not enough data points", "X axis data is not monotonically
    ///         increasing", "Error Interpolating Data", "No Y Signal Data"
    bool Resample(double dt);

    /// Cumulative trapezoid from time zero on, with the units of IntegralUnits; X is kept, Z becomes zeros.
    /// @throws CError "Too few data points to compute an Integral", "X or Y data is empty.", "The number of data (X and
    ///         Y) points are not same."
    bool Integrate();

    /// Keeps the samples with start <= X < stop, never the record's last one; both in X units. NFP follows `start`.
    /// @throws CError "Stop time (...) is before or equals Start Time (...)", "No X or Y Signal Data"
    bool TruncateByTime(double start, double stop);

    /// Keeps point numbers start ... stop, both included, in the numbering of NFP and NLP.
    /// @throws CError "Start Index (...)is >= Stop Index (...)", "Stop index is <= Start Index", "Unable to provide
    ///         requested stop/start indices"
    bool TruncateByIndex(std::int32_t start, std::int32_t stop);

protected:
    /// For operations that write every value of Y; UpdateLimits must follow.
    CColumnRewrite RewriteY() { return m_y.Change().Rewrite(); }

private:
    void KeepOrBuildX(const CColumn& y, const CColumn& z);
    void UpdateTimes();
    void TakeDescriptors(const CUDSFile& file);
    void RecognizeAxis();
    void FinishOperation(CColumn x, CColumn y);
    void KeepSamples(std::size_t begin, std::size_t end);

    CRecordArray m_x, m_y, m_z;
    std::string m_sourcePath, m_sourceFormat, m_fileType;
    std::array<double, 4> m_furtherReals{};
    std::string m_dataStatus;
    std::string m_yQuantity;
    double m_startTime = 0.0, m_endTime = 0.0;
    std::int32_t m_cfcClass = kUnknownChannelClass;
    bool m_isModified = false;
    bool m_hasSecondComponent = false;
};

}  // namespace ks
