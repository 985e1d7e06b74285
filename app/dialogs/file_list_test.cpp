#include "app/dialogs/file_list.h"

#include "app/testing/widget_probe.h"

#include <QDir>
#include <QFile>
#include <QMimeData>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QUrl>
#include <QWindow>

#include <memory>
#include <string>
#include <utility>
#include <vector>

class CFileListTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_list = std::make_unique<CFileList>();
        m_list->resize(300, 300);
    }

    void FilesKeepTheirOrderAndTheirDuplicates() {
        m_list->AppendFiles({"b", "a", "b"});
        m_list->InsertFiles(1, {"x", "y"});
        QCOMPARE(Names(), QString("b x y a b"));
    }

    void APathThatIsNotUtf8IsKeptByteForByte() {
        const std::vector<std::string> files = {
            "gr\xf6\xdf"
            "e.001",
            "  blanks  ", "a\\b/c"};
        m_list->AppendFiles(files);
        QCOMPARE(m_list->Files(), files);
    }

    void RemovingLeavesTheOthersInOrder() {
        m_list->AppendFiles({"0", "1", "2", "3", "4", "5", "6", "7"});
        Select({0, 2, 5});
        m_list->RemoveSelected();
        QCOMPARE(Names(), QString("1 3 4 6 7"));
    }

    void RemovingWithoutASelectionDoesNothing() {
        m_list->AppendFiles({"0", "1"});
        m_list->clearSelection();
        m_list->RemoveSelected();
        QCOMPARE(Names(), QString("0 1"));
        m_list->clear();
        m_list->RemoveSelected();
        QCOMPARE(m_list->count(), 0);
    }

    /// It selected the current entry, which the next press then removed.
    void RemovingTwiceLeavesACurrentEntryThatIsNotSelected() {
        m_list->AppendFiles({"0", "1", "2"});
        m_list->setCurrentRow(1, QItemSelectionModel::NoUpdate);
        for (int press = 0; press < 2; ++press) {
            QTest::keyClick(m_list.get(), Qt::Key_Delete);
            QCOMPARE(Names(), QString("0 1 2"));
            QCOMPARE(SelectedNames(), QString());
            QCOMPARE(m_list->currentRow(), 1);
        }
    }

    void RemovingSelectsANeighbor() {
        m_list->AppendFiles({"0", "1", "2"});
        Select({1});
        m_list->RemoveSelected();
        QCOMPARE(SelectedNames(), QString("0"));
    }

    void DeleteRemovesTheSelectedEntries() {
        m_list->AppendFiles({"0", "1", "2"});
        Select({1});
        QTest::keyClick(m_list.get(), Qt::Key_Delete);
        QCOMPARE(Names(), QString("0 2"));
    }

    void SelectedEntriesMoveByOnePlace_data() {
        QTest::addColumn<QList<int>>("rows");
        QTest::addColumn<QString>("up");
        QTest::addColumn<QString>("down");
        QTest::newRow("one in the middle") << QList<int>{2} << "0 2 1 3 4"
                                           << "0 1 3 2 4";
        QTest::newRow("first") << QList<int>{0} << "0 1 2 3 4"
                               << "1 0 2 3 4";
        QTest::newRow("last") << QList<int>{4} << "0 1 2 4 3"
                              << "0 1 2 3 4";
        QTest::newRow("block") << QList<int>{1, 2} << "1 2 0 3 4"
                               << "0 3 1 2 4";
        QTest::newRow("apart") << QList<int>{1, 3} << "1 0 3 2 4"
                               << "0 2 1 4 3";
        QTest::newRow("block at the top") << QList<int>{0, 1, 3} << "0 1 3 2 4"
                                          << "2 0 1 4 3";
        QTest::newRow("block at the bottom") << QList<int>{1, 3, 4} << "1 0 3 4 2"
                                             << "0 2 1 3 4";
        QTest::newRow("none") << QList<int>{} << "0 1 2 3 4"
                              << "0 1 2 3 4";
    }
    void SelectedEntriesMoveByOnePlace() {
        QFETCH(QList<int>, rows);
        QFETCH(QString, up);
        QFETCH(QString, down);
        for (const auto& [key, expected] : {std::pair{Qt::Key_Up, up}, std::pair{Qt::Key_Down, down}}) {
            m_list->clear();
            m_list->AppendFiles({"0", "1", "2", "3", "4"});
            Select(rows);
            QTest::keyClick(m_list.get(), key, Qt::AltModifier);
            QCOMPARE(Names(), expected);
            QCOMPARE(SelectedNames(), NamesOf(rows));
        }
    }

    void AMovedEntryCanBeMovedOn() {
        m_list->AppendFiles({"0", "1", "2", "3"});
        Select({3});
        for (int i = 0; i < 3; ++i) QTest::keyClick(m_list.get(), Qt::Key_Up, Qt::AltModifier);
        QCOMPARE(Names(), QString("3 0 1 2"));
        QCOMPARE(m_list->currentRow(), 0);
    }

    void AMissingFileIsMarkedUntilItIsThere() {
        const QTemporaryDir folder;
        const QString path = QDir::toNativeSeparators(folder.filePath("late.uds"));
        m_list->AppendFiles({path.toStdString(), folder.path().toStdString()});
        const QListWidgetItem& late = *m_list->item(0);
        QVERIFY(!late.icon().isNull());
        QCOMPARE(late.text(), path);
        QCOMPARE(late.toolTip(), "This file is missing: " + path);
        QCOMPARE(late.data(Qt::AccessibleTextRole).toString(), path + " (missing)");
        QVERIFY(!m_list->item(1)->icon().isNull());  // a folder is not a signal file

        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.close();
        m_list->RefreshMarks();
        QVERIFY(late.icon().isNull());
        QCOMPARE(late.toolTip(), path);
        QCOMPARE(late.data(Qt::AccessibleTextRole).toString(), path);
    }

    void DroppedFilesAreCopiedAndNamedWithTheirPlace_data() {
        QTest::addColumn<int>("y");
        QTest::addColumn<int>("row");
        QTest::newRow("upper half of the first") << 1 << 0;
        QTest::newRow("lower half of the first") << -1 << 1;
        QTest::newRow("below the last") << 280 << 2;
    }
    void DroppedFilesAreCopiedAndNamedWithTheirPlace() {
        QFETCH(int, y);
        QFETCH(int, row);
        m_list->AppendFiles({"0", "1"});
        m_list->show();
        const int lowerHalf = m_list->visualItemRect(m_list->item(0)).bottom() - 1;
        const QSignalSpy dropped(m_list.get(), &CFileList::PathsDropped);
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile("/tmp/a.uds"), QUrl::fromLocalFile("/tmp/b.uds")});
        QCOMPARE(Drop(data, y < 0 ? lowerHalf : y), Qt::CopyAction);
        QCOMPARE(dropped.size(), qsizetype{1});
        QCOMPARE(dropped[0][0].toStringList(), QStringList({"/tmp/a.uds", "/tmp/b.uds"}));
        QCOMPARE(dropped[0][1].toInt(), row);
        QCOMPARE(Names(), QString("0 1"));
    }

    void DraggingMovesAnEntryToAnotherPlace_data() {
        QTest::addColumn<int>("from");
        QTest::addColumn<int>("to");
        QTest::addColumn<QString>("expected");
        QTest::newRow("down") << 0 << 3 << "1 2 0 3";
        QTest::newRow("up") << 3 << 1 << "0 3 1 2";
        QTest::newRow("after the last") << 1 << -1 << "0 2 3 1";
    }
    void DraggingMovesAnEntryToAnotherPlace() {
        if (QGuiApplication::platformName() == "offscreen") QSKIP("No drags without a screen");
        QFETCH(int, from);
        QFETCH(int, to);
        QFETCH(QString, expected);
        m_list->AppendFiles({"0", "1", "2", "3"});
        m_list->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_list.get()));
        const QPoint start = m_list->visualItemRect(m_list->item(from)).center();
        const QPoint end = to < 0 ? QPoint(start.x(), m_list->viewport()->height() - 10)
                                  : m_list->visualItemRect(m_list->item(to)).topLeft() + QPoint(start.x(), 1);
        Drag(start, end);
        QCOMPARE(Names(), expected);
    }

    void ADragOfFilesIsWelcome() {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile("/tmp/a.uds")});
        QDragEnterEvent enter({10, 10}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(m_list->viewport(), &enter);
        QVERIFY(enter.isAccepted());
        QDragMoveEvent move({10, 10}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(m_list->viewport(), &move);
        QVERIFY(move.isAccepted());
    }

    /// A file manager that is told its files were moved deletes them.
    void FilesThatAreOfferedToBeMovedAreCopied() {
        m_list->AppendFiles({"0", "1"});
        m_list->show();
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile("/tmp/a.uds")});
        const auto checkCopied = [this](QDropEvent& event) {
            QCOMPARE(event.proposedAction(), Qt::MoveAction);
            QApplication::sendEvent(m_list->viewport(), &event);
            QVERIFY(event.isAccepted());
            QCOMPARE(event.dropAction(), Qt::CopyAction);
        };
        constexpr auto kOffered = Qt::CopyAction | Qt::MoveAction;  // the shift key proposes to move
        QDragEnterEvent enter({10, 10}, kOffered, &data, Qt::LeftButton, Qt::ShiftModifier);
        checkCopied(enter);
        for (const int y : {2, 280}) {  // over an entry, below the last
            QDragMoveEvent move({10, y}, kOffered, &data, Qt::LeftButton, Qt::ShiftModifier);
            checkCopied(move);
        }
        QDropEvent drop({10, 10}, kOffered, &data, Qt::LeftButton, Qt::ShiftModifier);
        checkCopied(drop);
    }

    void FilesThatCanOnlyBeMovedAreRefused() {
        const QSignalSpy dropped(m_list.get(), &CFileList::PathsDropped);
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile("/tmp/a.uds")});
        const auto checkRefused = [this](QDropEvent& event) {
            QApplication::sendEvent(m_list->viewport(), &event);
            QVERIFY(!event.isAccepted());
        };
        QDragEnterEvent enter({10, 10}, Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
        checkRefused(enter);
        QDragMoveEvent move({10, 10}, Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
        checkRefused(move);
        QDropEvent drop({10, 10}, Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
        checkRefused(drop);
        QCOMPARE(dropped.size(), qsizetype{0});
    }

    void ADropOfTextAloneIsNotTaken() {
        m_list->AppendFiles({"0"});
        const QSignalSpy dropped(m_list.get(), &CFileList::PathsDropped);
        QMimeData data;
        data.setText("/tmp/a.uds");
        QCOMPARE(Drop(data, 280), Qt::IgnoreAction);
        QCOMPARE(dropped.size(), qsizetype{0});
        QCOMPARE(Names(), QString("0"));
    }

private:
    Qt::DropAction Drop(const QMimeData& data, int y) { return SendDrop(*m_list->viewport(), data, QPoint(20, y)); }

    /// Drags with the mouse from one point of the viewport to another; the drag has an event loop of its own.
    void Drag(const QPoint& start, const QPoint& end) {
        QWindow* const window = m_list->windowHandle();
        const auto inWindow = [this](const QPoint& point) { return m_list->viewport()->mapTo(m_list.get(), point); };
        const int farEnough = 2 * QApplication::startDragDistance();
        QTest::mousePress(window, Qt::LeftButton, Qt::NoModifier, inWindow(start));
        QTest::mouseMove(window, inWindow(start) + QPoint(farEnough, 0));
        // The next move starts the drag and returns only after the drop.
        QTimer::singleShot(0, window, [=] {
            QTest::mouseMove(window, inWindow(end) - QPoint(1, 0));
            QTest::mouseMove(window, inWindow(end));
            QTest::mouseRelease(window, Qt::LeftButton, Qt::NoModifier, inWindow(end));
        });
        QTest::mouseMove(window, inWindow(start) + QPoint(farEnough + 1, 0));
    }

    void Select(const QList<int>& rows) {
        m_list->clearSelection();
        for (const int row : rows) m_list->setCurrentRow(row, QItemSelectionModel::Select);
    }

    static QString NamesOf(const QList<int>& rows) {
        QStringList names;
        for (const int row : rows) names.append(QString::number(row));
        return names.join(' ');
    }

    QString Names() const {
        QStringList names;
        for (const std::string& file : m_list->Files()) names.append(QString::fromStdString(file));
        return names.join(' ');
    }

    QString SelectedNames() const {
        QStringList names;
        for (int row = 0; row < m_list->count(); ++row) {
            if (m_list->item(row)->isSelected()) names.append(m_list->item(row)->text());
        }
        return names.join(' ');
    }

    std::unique_ptr<CFileList> m_list;
};

QTEST_MAIN(CFileListTest)
#include "file_list_test.moc"
