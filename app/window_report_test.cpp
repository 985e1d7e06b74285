// The table on the clipboard and as an HTML report.

#include "app/commands.h"
#include "app/table/summary_list.h"
#include "app/table/summary_model.h"
#include "app/testing/exports_test.h"
#include "compare/export.h"
#include "compare/verdict.h"

#include <QAbstractItemModel>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QMimeData>
#include <QRegularExpression>
#include <QSet>

#include <map>
#include <string>
#include <vector>

class CWindowReportTest : public CExportsTest {
    Q_OBJECT

private slots:
    void init() { OpenWithSled(); }
    void cleanup() { CloseWindow(); }

    // Clipboard.

    void CopyDataPutsTheTableOnTheClipboardAsItIsShown() {
        m_window->List()->horizontalHeader()->moveSection(2, 0);
        Trigger(CCommandId::CopyData);
        const QMimeData& data = *QGuiApplication::clipboard()->mimeData();
        QVERIFY(data.hasText());
        QString expected;
        const QAbstractItemModel& model = *m_window->List()->model();
        for (int row = -1; row < model.rowCount(); ++row) {
            QStringList cells;
            for (const int column : {2, 0, 1, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15}) {
                cells.append(row < 0 ? model.headerData(column, Qt::Horizontal).toString()
                                     : model.index(row, column).data().toString());
            }
            expected += cells.join('\t') + "\r\n";
        }
        QCOMPARE(data.text(), expected);
        QVERIFY(expected.startsWith("Avg Residual\tFilename\tPeak Value\tStd Dev of Residual\t"));
        QCOMPARE(expected.count("\r\n"), qsizetype{4});
        QCOMPARE(m_window->StatusText(), QString("The table was copied to the clipboard."));
    }

    // HTML report.

    void HtmlWritesTheTableAsItIsShown() {
        m_window->List()->horizontalHeader()->moveSection(3, 0);
        const QString path = Save(CCommandId::SaveHtml, "report.html");
        CheckSaveRequest("Save Results to HTML File",
                         {"HTML Files (*.html)|*.html", "HTML Files (*.htm)|*.htm", "All Files (*.*)|*.*"});
        QCOMPARE(m_window->picker.requests.back().folder, std::string());
        const QByteArray bytes = Bytes(path);
        QCOMPARE(bytes, QByteArray::fromStdString(HtmlReport(m_window->List()->DisplayedTable())));
        CheckReport(QString::fromLatin1(bytes), {3, 0, 1, 2, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15});
        QCOMPARE(m_window->store.value(kUdsFolder).toString(), Folder());
        QCOMPARE(m_window->StatusText(), "The report was saved as " + path + ".");
    }

    void AReportThatCannotBeOpenedEndsTheCommandSilently() {
        Save(CCommandId::SaveHtml, "no such folder/report.html");
        QVERIFY(m_window->messages.said.isEmpty());
        QVERIFY(m_window->errorLists.texts.isEmpty());
        QVERIFY(!m_window->store.contains(kUdsFolder));
    }

    void TheReportStartsInTheFolderOfTheLastUdsOutput() {
        m_window->store.setValue(kUdsFolder, Folder());
        Save(CCommandId::SaveHtml, "report.html");
        QCOMPARE(m_window->picker.requests.back().folder, Folder().toStdString());
    }

private:
    /// Every cell of the report, columns in this order, against the table shown.
    void CheckReport(const QString& report, const std::vector<int>& order) {
        static const QRegularExpression header("<TD><B>([^<]*)</B></TD>\r\n");
        static const QRegularExpression cell("\t<TD (bgcolor=\"(#[0-9A-F]{6})\" )?>([^<]*)</TD>\r\n");
        const QAbstractItemModel& model = *m_window->List()->model();
        auto headers = header.globalMatch(report);
        for (const int column : order) {
            QVERIFY(headers.hasNext());
            QCOMPARE(headers.next().captured(1), model.headerData(column, Qt::Horizontal).toString());
        }
        QVERIFY(!headers.hasNext());
        const std::map<CVerdict, QString> colors = {
            {CVerdict::None, ""}, {CVerdict::Good, "#00E000"}, {CVerdict::Bad, "#E00000"}};
        QSet<QString> seen;
        auto cells = cell.globalMatch(report);
        for (int row = 0; row < model.rowCount(); ++row) {
            for (const int column : order) {
                QVERIFY(cells.hasNext());
                const QRegularExpressionMatch match = cells.next();
                const QModelIndex index = model.index(row, column);
                QCOMPARE(match.captured(3), index.data().toString());
                QCOMPARE(match.captured(2), colors.at(static_cast<CVerdict>(index.data(VerdictRole).toInt())));
                seen.insert(match.captured(2));
            }
        }
        QVERIFY(!cells.hasNext());
        QCOMPARE(seen.size(), qsizetype{3});
    }
};

QTEST_MAIN(CWindowReportTest)
#include "window_report_test.moc"
