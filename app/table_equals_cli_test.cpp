// The window's table against the command line's results for the same choice: two programs, same results, cell by cell.

#include "app/testing/window_fixture.h"
#include "app/testing/window_test.h"
#include "compare/document.h"
#include "tests/support/summary_samples.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace {

std::vector<std::string> Files(std::string (*file)(int), int first, int last) {
    std::vector<std::string> files;
    for (int number = first; number <= last; ++number) files.push_back(file(number));
    return files;
}

}  // namespace

class CTableEqualsCliTest : public CWindowTest {
    Q_OBJECT

private slots:
    void init() { OpenWindow(); }
    void cleanup() { CloseWindow(); }

    void EveryCellIsThatOfTheCommandLine_data() {
        QTest::addColumn<bool>("isForce");
        QTest::addColumn<bool>("isAverage");
        QTest::addColumn<int>("channelClass");  // 0: not filtered
        QTest::addColumn<QString>("start");     // empty: not cut
        QTest::addColumn<QString>("end");
        QTest::addColumn<QString>("corridor");  // empty: as at the start
        for (const bool isForce : {false, true}) {
            for (const bool isAverage : {false, true}) {
                const auto row = [&](const char* name) -> QTestData& {
                    const QString set = isForce ? "force" : "sled";
                    const QString reference = isAverage ? "average" : "reference";
                    return QTest::newRow(qPrintable(QStringList({set, reference, name}).join(", ")))
                           << isForce << isAverage;
                };
                row("CFC60") << 60 << ""
                             << ""
                             << "";
                row("CFC180") << 180 << ""
                              << ""
                              << "";
                row("CFC600") << 600 << ""
                              << ""
                              << "";
                row("CFC1000") << 1000 << ""
                               << ""
                               << "";
                row("not filtered") << 0 << ""
                                    << ""
                                    << "";
                row("cut") << 0 << "0.01"
                           << "0.12"
                           << "";
                row("filtered and cut") << 60 << "0"
                                        << "0.10000000149011612"
                                        << "";
                row("another corridor") << 180 << ""
                                        << "" << (isForce ? "20000" : "2.5");
            }
        }
    }
    void EveryCellIsThatOfTheCommandLine() {
        QFETCH(bool, isForce);
        QFETCH(bool, isAverage);
        QFETCH(int, channelClass);
        QFETCH(QString, start);
        QFETCH(QString, end);
        QFETCH(QString, corridor);
        const auto file = isForce ? &CWindowFixture::Force : &CWindowFixture::Sled;
        std::vector<std::string> files = Files(file, 2, isForce ? 4 : 6);
        if (!isForce) files.push_back(CWindowFixture::Sample("sled/s01007aa0.txt"));
        const std::string reference = isAverage ? std::string() : file(1);

        QStringList arguments = {"compare", "--json", "-"};
        CRunChoice choice;
        choice.isFiltered = channelClass != 0;
        if (choice.isFiltered) {
            choice.channelClass = QString("CFC%1").arg(channelClass);
            arguments << "--cfc" << QString::number(channelClass);
        }
        if (!start.isEmpty()) {
            choice.window = {start, end};
            arguments << "--window" << start << end;
        }
        if (!corridor.isEmpty()) {
            m_window->SetCorridor(corridor);
            arguments << "--corridor" << corridor;
        }
        if (!isAverage) arguments << "--reference" << QString::fromStdString(reference);
        for (const std::string& path : files) arguments << QString::fromStdString(path);

        m_window->Compare(files, reference, choice);
        QVERIFY(m_window->errorLists.texts.isEmpty());
        CompareTable(RunCli(arguments));
    }

    void AStoppedRunHasNoTableInEither() {
        const std::string missing = m_window->Path("gone.001").toStdString();
        m_window->Compare({Sled(2), missing}, Sled(1));
        QVERIFY(m_window->List() == nullptr);
        QProcess cli;
        cli.start(QUORVEL_CLI, {"compare", "--json", "-", "--cfc", "60", "--reference", QString::fromStdString(Sled(1)),
                                QString::fromStdString(Sled(2)), QString::fromStdString(missing)});
        QVERIFY(cli.waitForFinished());
        QCOMPARE(cli.exitStatus(), QProcess::NormalExit);
        QCOMPARE(cli.exitCode(), 3);
        const QJsonObject results = QJsonDocument::fromJson(cli.readAllStandardOutput()).object();
        QVERIFY(results["signals"].toArray().isEmpty());
        // The same sentences in the error list.
        QStringList errors;
        for (const QJsonValue& error : results["errors"].toArray()) errors.append(error.toString() + "\r\n");
        QVERIFY(!errors.isEmpty());
        QCOMPARE(m_window->errorLists.texts,
                 QStringList({QDir::toNativeSeparators(QString::fromStdString(missing)) + "\r\n" + errors.join("")}));
    }

    void ThePagesAreThoseOfTheCommandLine() {
        m_window->CompareSled();
        const QJsonObject results =
            RunCli({"compare", "--json", "-", "--pages", "--cfc", "60", "--reference", QString::fromStdString(Sled(1)),
                    QString::fromStdString(Sled(2)), QString::fromStdString(Sled(3)), QString::fromStdString(Sled(4))});
        const QJsonArray pages = results["pages"].toArray();
        QCOMPARE(pages.size(), m_window->PageNames().size());
        const CQuorvelDoc& document = m_window->frame->Document();
        for (qsizetype i = 0; i < pages.size(); ++i) {
            const QJsonObject page = pages[i].toObject();
            QCOMPARE(m_window->PageNames()[i], page["name"].toString());
            if (i == 0) continue;  // the summary has no curves
            m_window->ChoosePage(page["name"].toString());
            const QJsonArray series = page["series"].toArray();
            QCOMPARE(document.Series().size(), static_cast<std::size_t>(series.size()));
            for (qsizetype j = 0; j < series.size(); ++j) {
                const auto index = static_cast<std::size_t>(j);
                QCOMPARE(QString::fromStdString(document.SeriesNames()[index]), series[j]["name"].toString());
                CompareColumn(document.Series()[index]->GetX(), series[j]["x"].toArray());
                CompareColumn(document.Series()[index]->GetY(), series[j]["y"].toArray());
            }
        }
    }

private:
    static QJsonObject RunCli(const QStringList& arguments) {
        QProcess cli;
        cli.start(QUORVEL_CLI, arguments);
        if (!cli.waitForFinished() || cli.exitStatus() != QProcess::NormalExit || cli.exitCode() != 0) {
            qWarning("quorvel-cli failed: %s", cli.readAllStandardError().constData());
            return {};
        }
        return QJsonDocument::fromJson(cli.readAllStandardOutput()).object();
    }

    void CompareTable(const QJsonObject& results) const {
        const QJsonArray rows = results["signals"].toArray();
        const QAbstractItemModel& model = *m_window->List()->model();
        QVERIFY(!rows.isEmpty());
        QCOMPARE(qsizetype{model.rowCount()}, rows.size());
        for (int row = 0; row < model.rowCount(); ++row) {
            const QJsonArray texts = rows[row]["columns"].toArray();
            const QJsonArray verdicts = rows[row]["verdicts"].toArray();
            // The results hold the fixed columns, and these come first in the window.
            QCOMPARE(qsizetype(FixedColumns().size()), texts.size());
            for (int column = 0; column < texts.size(); ++column) {
                const QModelIndex cell = model.index(row, column);
                QCOMPARE(cell.data().toString(), texts[column].toString());
                QCOMPARE(VerdictOnShow(cell), verdicts[column].toString());
            }
        }
    }

    /// By the color that the user sees.
    static QString VerdictOnShow(const QModelIndex& cell) {
        const QVariant background = cell.data(Qt::BackgroundRole);
        if (!background.isValid()) return "none";
        const QColor color = background.value<QBrush>().color();
        if (color == QColor(0, 224, 0)) return "good";
        return color == QColor(255, 0, 0) ? QString("bad") : color.name();
    }

    static void CompareColumn(std::span<const double> values, const QJsonArray& expected) {
        QCOMPARE(values.size(), static_cast<std::size_t>(expected.size()));
        for (std::size_t i = 0; i < values.size(); ++i) {
            const double number = expected[static_cast<qsizetype>(i)].toDouble();
            QVERIFY2(values[i] == number,
                     qPrintable(QString("%1 != %2").arg(values[i], 0, 'g', 17).arg(number, 0, 'g', 17)));
        }
    }
};

QTEST_MAIN(CTableEqualsCliTest)
#include "table_equals_cli_test.moc"
