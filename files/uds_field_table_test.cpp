#include "files/uds_field_table.h"

#include "files/uds_fields.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <set>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace ks {
namespace {

enum class CKind { Text, Integer, Real };

struct Row {
    CUDSRecord record;
    int offset;
    int width;
    CKind kind;
    std::string name;
};

constexpr auto kFile = CUDSRecord::File;
constexpr auto kSecond = CUDSRecord::SecondComponent;
constexpr auto kCurve = CUDSRecord::Curve;
constexpr auto kText = CKind::Text;
constexpr auto kInt = CKind::Integer;
constexpr auto kReal = CKind::Real;

/// The layout of the format, offset by offset, from the start of each record.
const std::vector<Row> kLayout = {
    {kFile, 0, 12, kText, "FILEID"},      {kFile, 12, 4, kInt, "FILEVER"},      {kFile, 16, 10, kText, "FILEFORM"},
    {kFile, 26, 5, kText, "NUMFORM"},     {kFile, 31, 3, kText, "DIMSYS"},      {kFile, 34, 15, kText, "TSTSRC"},
    {kFile, 49, 4, kInt, "TSTNO"},        {kFile, 53, 12, kText, "TSTNAM"},     {kFile, 65, 70, kText, "TITLE"},
    {kFile, 135, 25, kText, "TSTPRF"},    {kFile, 160, 10, kText, "TSTREF"},    {kFile, 170, 3, kText, "TSTCFN"},
    {kFile, 173, 4, kInt, "IMPANG"},      {kFile, 177, 4, kReal, "CLSSPD"},     {kFile, 181, 4, kInt, "CMPNO1"},
    {kFile, 185, 2, kText, "CMPTYP1"},    {kFile, 187, 30, kText, "CMPDSC1"},   {kFile, 217, 15, kText, "MAKE1"},
    {kFile, 232, 25, kText, "MODEL1"},    {kFile, 257, 4, kInt, "YEAR1"},       {kFile, 261, 25, kText, "BODY1"},
    {kFile, 286, 4, kText, "ENGINE1"},    {kFile, 290, 4, kReal, "VEHWGT1"},    {kFile, 294, 4, kReal, "VEHSPD1"},
    {kFile, 298, 6, kText, "OCCTYP1"},    {kFile, 304, 4, kInt, "OCCSIZ1"},     {kFile, 308, 1, kText, "OCCSEX1"},
    {kFile, 309, 4, kReal, "OCCWGT1"},    {kFile, 313, 2, kText, "OCCAGE1"},    {kFile, 315, 20, kText, "RSTPRI1"},
    {kFile, 335, 20, kText, "RSTSEC1"},   {kFile, 355, 4, kReal, "INJ1"},       {kFile, 359, 4, kReal, "INJ2"},
    {kFile, 363, 4, kReal, "INJ3"},       {kFile, 367, 4, kReal, "INJ4"},       {kFile, 371, 4, kReal, "INJ5"},
    {kFile, 375, 4, kReal, "INJ6"},       {kFile, 379, 1, kText, "AIS"},

    {kSecond, 12, 4, kInt, "CMPNO2"},     {kSecond, 16, 2, kText, "CMPTYP2"},   {kSecond, 18, 30, kText, "CMPDSC2"},
    {kSecond, 48, 15, kText, "MAKE2"},    {kSecond, 63, 25, kText, "MODEL2"},   {kSecond, 88, 4, kInt, "YEAR2"},
    {kSecond, 92, 25, kText, "BODY2"},    {kSecond, 117, 4, kText, "ENGINE2"},  {kSecond, 121, 4, kReal, "VEHWGT2"},
    {kSecond, 125, 4, kReal, "VEHSPD2"},  {kSecond, 129, 6, kText, "OCCTYP2"},  {kSecond, 135, 4, kInt, "OCCSIZ2"},
    {kSecond, 139, 1, kText, "OCCSEX2"},  {kSecond, 140, 4, kReal, "OCCWGT2"},  {kSecond, 144, 2, kText, "OCCAGE2"},
    {kSecond, 146, 20, kText, "RSTPRI2"}, {kSecond, 166, 20, kText, "RSTSEC2"},

    {kCurve, 12, 4, kInt, "ICHAN"},       {kCurve, 16, 10, kText, "CHANFORM"},  {kCurve, 26, 4, kInt, "CURNO"},
    {kCurve, 30, 12, kText, "CURNAM"},    {kCurve, 42, 30, kText, "SENATT"},    {kCurve, 72, 2, kText, "SENLOC"},
    {kCurve, 74, 4, kInt, "SENNUM"},      {kCurve, 78, 4, kInt, "BANDNO"},      {kCurve, 82, 4, kInt, "GAGNO"},
    {kCurve, 86, 2, kText, "AXIS"},       {kCurve, 88, 20, kText, "YTYPE"},     {kCurve, 108, 20, kText, "YUNITS"},
    {kCurve, 128, 20, kText, "XTYPE"},    {kCurve, 148, 20, kText, "XUNITS"},   {kCurve, 168, 20, kText, "STATUS"},
    {kCurve, 188, 20, kText, "CURTYP"},   {kCurve, 208, 70, kText, "DESC"},     {kCurve, 278, 4, kInt, "NFP"},
    {kCurve, 282, 4, kInt, "NLP"},        {kCurve, 286, 4, kReal, "delt"},      {kCurve, 290, 4, kReal, "INIVEL"},
    {kCurve, 294, 4, kReal, "PREFIL"},    {kCurve, 298, 4, kReal, "FCUT"},      {kCurve, 302, 4, kReal, "FCOR"},
    {kCurve, 306, 4, kReal, "FSTP"},      {kCurve, 310, 4, kReal, "SCLFAC"},    {kCurve, 314, 4, kInt, "ID1"},
    {kCurve, 318, 4, kInt, "ID2"},        {kCurve, 322, 4, kInt, "ID3"},        {kCurve, 326, 4, kInt, "ID4"},
    {kCurve, 330, 4, kInt, "ID5"},        {kCurve, 334, 4, kReal, "RD1"},       {kCurve, 338, 4, kReal, "RD2"},
    {kCurve, 342, 4, kReal, "RD3"},       {kCurve, 346, 4, kReal, "RD4"},       {kCurve, 350, 4, kReal, "RD5"},
    {kCurve, 354, 20, kText, "CD1"},      {kCurve, 374, 70, kText, "CD2"},
};

CKind KindOf(const CUDSField& field) {
    if (std::holds_alternative<CUDSTextAccess>(field.access)) return CKind::Text;
    return std::holds_alternative<CUDSIntegerAccess>(field.access) ? CKind::Integer : CKind::Real;
}

TEST(UdsFieldTable, HasTheLayoutOfTheFormat) {
    const auto table = UdsFieldTable();
    ASSERT_EQ(table.size(), kLayout.size());
    for (std::size_t i = 0; i < table.size(); ++i) {
        const Row& row = kLayout[i];
        EXPECT_EQ(table[i].name, row.name);
        EXPECT_EQ(table[i].record, row.record) << row.name;
        EXPECT_EQ(table[i].offset, row.offset) << row.name;
        EXPECT_EQ(table[i].width, row.width) << row.name;
        EXPECT_EQ(KindOf(table[i]), row.kind) << row.name;
    }
}

TEST(UdsFieldTable, EndsTheRecords) {
    EXPECT_EQ(UdsRecordEnd(CUDSRecord::File), 380);
    EXPECT_EQ(UdsRecordEnd(CUDSRecord::SecondComponent), 186);
    EXPECT_EQ(UdsRecordEnd(CUDSRecord::Curve), 444);
}

TEST(UdsFieldTable, NamesEveryFieldOnce) {
    std::set<std::string_view> names;
    for (const CUDSField& field : UdsFieldTable()) EXPECT_TRUE(names.insert(field.name).second) << field.name;
}

TEST(FindUdsField, FindsByName) {
    ASSERT_NE(FindUdsField("NFP"), nullptr);
    EXPECT_EQ(FindUdsField("NFP")->offset, 278);
    EXPECT_EQ(FindUdsField("nfp"), nullptr);
    EXPECT_EQ(FindUdsField(""), nullptr);
}

/// What a new field set holds; every field that is not here is 0 or empty.
TEST(UDSFields, HasTheDefaultsOfANewFile) {
    const CUDSFields fields;
    EXPECT_EQ(fields.GetFILEID(), "UDS-1992");
    EXPECT_EQ(fields.GetFILEVER(), 1);
    EXPECT_EQ(fields.GetFILEFORM(), "X-Y");
    EXPECT_EQ(fields.GetDIMSYS(), "MET");
    EXPECT_EQ(fields.GetTSTSRC(), "USER DATA");
    EXPECT_EQ(fields.GetTSTNO(), 0);
    EXPECT_EQ(fields.GetTSTNAM(), "0");
    EXPECT_EQ(fields.GetTSTPRF(), "OTHER");
    EXPECT_EQ(fields.GetTSTCFN(), "OTH");
    EXPECT_EQ(fields.GetRSTPRI1(), "NONE");
    EXPECT_EQ(fields.GetRSTSEC1(), "NONE");
    EXPECT_EQ(fields.GetICHAN(), 1);
    EXPECT_EQ(fields.GetCHANFORM(), "X-Y");
    EXPECT_EQ(fields.GetCURNAM(), "0");
    EXPECT_EQ(fields.GetXTYPE(), "TIME");
    EXPECT_EQ(fields.GetXUNITS(), "SECONDS");
    EXPECT_EQ(fields.GetSTATUS(), "COMPUTED");
    EXPECT_EQ(fields.GetCURTYP(), "TIME SERIES");
    EXPECT_EQ(fields.GetDESC(), "COMPUTED / SIMULATED DATA");
}

TEST(UDSFields, HasNoOtherDefaults) {
    const std::set<std::string_view> filled{"FILEID", "FILEVER", "FILEFORM", "DIMSYS",  "TSTSRC", "TSTNAM",
                                            "TSTPRF", "TSTCFN",  "RSTPRI1",  "RSTSEC1", "ICHAN",  "CHANFORM",
                                            "CURNAM", "XTYPE",   "XUNITS",   "STATUS",  "CURTYP", "DESC"};
    const CUDSFields fields;
    for (const CUDSField& field : UdsFieldTable()) {
        if (filled.contains(field.name)) continue;
        if (const auto* text = std::get_if<CUDSTextAccess>(&field.access)) {
            EXPECT_EQ((fields.*text->get)(), "") << field.name;
            EXPECT_STREQ(text->fallback, "") << field.name;
        } else if (const auto* integer = std::get_if<CUDSIntegerAccess>(&field.access)) {
            EXPECT_EQ((fields.*integer->get)(), 0) << field.name;
        } else {
            EXPECT_EQ((fields.*std::get<CUDSRealAccess>(field.access).get)(), 0.0F) << field.name;
        }
    }
}

TEST(UdsFieldTable, TellsTheDefaultsOfANewFieldSet) {
    const CUDSFields fields;
    for (const CUDSField& field : UdsFieldTable()) {
        if (const auto* text = std::get_if<CUDSTextAccess>(&field.access)) {
            EXPECT_EQ((fields.*text->get)(), text->fallback) << field.name;
        } else if (const auto* integer = std::get_if<CUDSIntegerAccess>(&field.access)) {
            EXPECT_EQ((fields.*integer->get)(), integer->fallback) << field.name;
        }
    }
}

}  // namespace
}  // namespace ks
