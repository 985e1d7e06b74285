// The curves of a page as signals and as a table.

#include "app/commands.h"
#include "app/dialogs/file_picker.h"
#include "app/testing/exports_test.h"
#include "app/testing/window_fixture.h"
#include "compare/document.h"
#include "compare/export.h"
#include "files/replacing_file.h"
#include "signal/nsignal.h"
#include "tests/support/test_signals.h"

#include <QList>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace {

bool AreClose(double actual, double expected) {
    return std::abs(actual - expected) <= 1e-6 * std::max(1.0, std::abs(expected));
}

/// Number of points in which two columns differ; -1 for columns of different lengths.
int Differences(std::span<const double> actual, std::span<const double> expected) {
    if (actual.size() != expected.size()) return -1;
    int count = 0;
    for (std::size_t i = 0; i < actual.size(); ++i) count += AreClose(actual[i], expected[i]) ? 0 : 1;
    return count;
}

}  // namespace

class CWindowCurvesTest : public CExportsTest {
    Q_OBJECT

private slots:
    void init() { OpenWithSled(); }
    void cleanup() { CloseWindow(); }

    // Signals.

    void EverySeriesOfEveryPageIsSavedAndReadBack_data() {
        QTest::addColumn<bool>("isForce");
        QTest::newRow("sled") << false;
        QTest::newRow("force") << true;
    }
    void EverySeriesOfEveryPageIsSavedAndReadBack() {
        QFETCH(bool, isForce);
        if (isForce) m_window->CompareForce();
        const CQuorvelDoc& document = m_window->frame->Document();
        const QStringList pages = m_window->PageNames().mid(1);
        for (const QString& page : pages) {
            m_window->ChoosePage(page);
            const std::size_t count = document.Series().size();
            QVERIFY(count >= 2);
            m_window->picker.requests.clear();
            for (std::size_t j = 0; j < count; ++j) m_window->picker.answers.push_back(Picked(SeriesFile(j)));
            Trigger(CCommandId::SaveUds);
            QCOMPARE(m_window->picker.requests.size(), count);
            for (std::size_t j = 0; j < count; ++j) {
                const ks::CFileRequest& request = m_window->picker.requests[j];
                QCOMPARE(request.title, "Save " + document.SeriesNames()[j] + " as");
                QVERIFY(request.kind == ks::CPickerKind::Save && request.filters.empty() &&
                        request.suggestedName.empty());
                QVERIFY(request.shouldHideReadOnly && request.shouldAskBeforeOverwriting &&
                        request.defaultExtension.empty());
                const QString place = page + QString(", series %1").arg(j);
                ks::CNSignal record;
                record.LoadUDS(SeriesFile(j).toStdString());
                const ks::CNSignal& series = *document.Series()[j];
                QVERIFY2(Differences(record.GetY(), series.GetY()) == 0, qPrintable(place));
                QVERIFY2(Differences(record.GetX(), series.GetX()) == 0, qPrintable(place));
                QVERIFY2(record.GetYUNITS() == series.GetYUNITS(), qPrintable(place));
                QVERIFY2(record.GetXUNITS() == series.GetXUNITS(), qPrintable(place));
            }
        }
        QVERIFY(m_window->messages.said.isEmpty());
        QVERIFY(m_window->errorLists.texts.isEmpty());
    }

    void CancelSkipsOneSeriesAndTheLastFolderIsStored() {
        m_window->ChoosePage("Acceleration");
        QVERIFY(QDir(m_window->folder.path()).mkdir("last"));
        m_window->picker.answers = {Picked("first.uds"), std::nullopt, Picked("last/third.uds"), std::nullopt};
        Trigger(CCommandId::SaveUds);
        QCOMPARE(m_window->picker.requests.size(), std::size_t{4});
        for (const ks::CFileRequest& request : m_window->picker.requests) QCOMPARE(request.folder, std::string("C:\\"));
        QVERIFY(QFile::exists(m_window->Path("first.uds")));
        QVERIFY(QFile::exists(m_window->Path("last/third.uds")));
        QCOMPARE(m_window->store.value(kUdsFolder).toString(), Folder("last/"));
        QCOMPARE(m_window->StatusText(), "2 curves were saved, the last as " + m_window->Path("last/third.uds") + ".");
    }

    void TheSummaryHasNoCurvesToSaveAndAsksForNoName_data() {
        QTest::addColumn<int>("id");
        QTest::newRow("uds") << CommandNumber(CCommandId::SaveUds);
        QTest::newRow("ascii") << CommandNumber(CCommandId::SaveAscii);
    }
    /// The ASCII command used to ask for a name and then to write an empty file.
    void TheSummaryHasNoCurvesToSaveAndAsksForNoName() {
        QFETCH(int, id);
        Trigger(static_cast<CCommandId>(id));
        QVERIFY(m_window->picker.requests.empty());
        QCOMPARE(m_window->StatusText(), QString("This page has no curves to save."));
        m_window->ChoosePage("Velocity");
        m_window->ChoosePage("Summary");  // the document still holds the curves of the page before
        Trigger(static_cast<CCommandId>(id));
        QVERIFY(m_window->picker.requests.empty());
    }

    /// A signal in the form Y, cut from a time before its first sample, is numbered from where the cut began.
    void AFileWhoseTimesAreNotThoseOfItsCurveIsNamed() {
        const std::string signal = m_window->Path("signal.uds").toStdString();
        ks::CNSignal written = MakeTimeSignal(std::vector<double>(300, 1.0), 0.5);
        written.SetFILEFORM("Y");
        written.SaveUDS(signal);
        CRunChoice choice;
        choice.isFiltered = false;
        choice.window = {"-1", "20"};
        m_window->Compare({signal}, signal, choice);
        m_window->errorLists.texts.clear();
        m_window->ChoosePage("Acceleration");
        const QString path = Save(CCommandId::SaveUds, "first.uds");
        QCOMPARE(
            m_window->errorLists.texts,
            QStringList({"The times of " + path +
                         " are not those of its curve. The file holds the values alone, and point 1, at 0, will be "
                         "read as at -1.\r\n"}));
        QCOMPARE(m_window->StatusText(), "Saved as " + path + ".");
        ks::CNSignal record;
        record.LoadUDS(path.toStdString());
        QCOMPARE(record.GetX().front(), -1.0);  // the sentence would be untrue
    }

    // ASCII table.

    void AsciiWritesTheSeriesOfThePageSideBySide_data() {
        QTest::addColumn<QString>("page");
        QTest::addColumn<bool>("isPadded");
        QTest::newRow("curves of different lengths") << "Acceleration" << true;
        QTest::newRow("curves of one length") << "Cross Correlation" << false;
        QTest::newRow("distributions") << "Cummulative Density" << true;
    }
    void AsciiWritesTheSeriesOfThePageSideBySide() {
        QFETCH(QString, page);
        QFETCH(bool, isPadded);
        m_window->ChoosePage(page);
        const QString path = Save(CCommandId::SaveAscii, "table.txt");
        CheckSaveRequest("Save ASCII data As", {});
        QCOMPARE(m_window->picker.requests.back().folder, std::string("C:\\"));
        const CQuorvelDoc& document = m_window->frame->Document();
        const QByteArray bytes = Bytes(path);
        const QString other = Folder() + "other.txt";
        QVERIFY(WriteAsciiTable(other.toStdString(), document.ChartBlock(), document.CurrentPageId()) ==
                ks::CWriteResult::Written);
        QCOMPARE(bytes, Bytes(other));
        CheckTable(bytes, document);
        QCOMPARE(bytes.contains("0.0 0.0 "), isPadded);
        QCOMPARE(m_window->store.value(kAsciiFolder).toString(), Folder());
        QVERIFY(!m_window->store.contains(kUdsFolder));
        QCOMPARE(m_window->StatusText(), "Saved as " + path + ".");
    }

    void ATableThatCannotBeWrittenIsReportedAndItsFolderNotStored() {
        m_window->ChoosePage("Velocity");
        Save(CCommandId::SaveBmp, "plot.bmp");
        const QString path = Save(CCommandId::SaveAscii, "no such folder/table.txt");
        QCOMPARE(m_window->StatusText(), QString("Ready"));  // the message of an earlier command is gone
        QCOMPARE(m_window->errorLists.texts, QStringList({"The ASCII data could not be written to " + path + ".\r\n"}));
        QVERIFY(!m_window->store.contains(kAsciiFolder));
    }

private:
    QString SeriesFile(std::size_t j) const { return m_window->Path(QString("series%1.uds").arg(j)); }

    /// Every number of an ASCII table against the series: six significant digits, "0.0" twice after a series' end.
    static void CheckTable(const QByteArray& bytes, const CQuorvelDoc& document) {
        QVERIFY(bytes.endsWith(" \r\n"));
        const QList<QByteArray> lines = bytes.chopped(2).split('\n');
        const CSeriesList& series = document.Series();
        QCOMPARE(lines.size(), qsizetype{document.ChartBlock().pointCount});
        for (qsizetype i = 0; i < lines.size(); ++i) {
            const QList<QByteArray> cells = lines[i].trimmed().split(' ');
            QCOMPARE(cells.size(), static_cast<qsizetype>(2 * series.size()));
            for (std::size_t j = 0; j < series.size(); ++j) {
                const auto row = static_cast<std::size_t>(i);
                const auto column = static_cast<qsizetype>(2 * j);
                const bool isPadded = row >= series[j]->GetPointCount() || series[j]->GetX()[row] == 0x1p-52;
                const QByteArray x = isPadded ? "0.0" : QByteArray::number(series[j]->GetX()[row], 'g', 6);
                const QByteArray y = isPadded ? "0.0" : QByteArray::number(series[j]->GetY()[row], 'g', 6);
                if (cells[column] != x) QCOMPARE(cells[column], x);
                if (cells[column + 1] != y) QCOMPARE(cells[column + 1], y);
            }
        }
    }
};

QTEST_MAIN(CWindowCurvesTest)
#include "window_curves_test.moc"
