#include "app/dialogs/file_picker.h"

#include "app/dialogs/data_type_filters.h"
#include "app/testing/dialog_driver.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>

#include <cstddef>
#include <memory>

class CFilePickerTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_folder = std::make_unique<QTemporaryDir>();
        QVERIFY(m_folder->isValid());
        for (const char* const name : {"a.uds", "b.uds"}) Write(name, "x");
    }

    void cleanup() { QCOMPARE(m_dialogs.TakeFaults().join(", "), QString()); }

    void AFolderThatDoesNotExistFallsBackToTheHomeFolder() {
        QCOMPARE(ExistingFolder("Q:\\uds\\vehdb\\nowhere"), QDir::homePath());
        QCOMPARE(ExistingFolder(""), QDir::homePath());
        QCOMPARE(ExistingFolder(m_folder->filePath("a.uds")), QDir::homePath());
        QCOMPARE(ExistingFolder(m_folder->path()), m_folder->path());
    }

    void TheFolderOfAFileKeepsItsLastSeparator() {
        QCOMPARE(DriveAndFolder("/data/run/a.uds"), QDir::toNativeSeparators("/data/run/"));
        QCOMPARE(DriveAndFolder("a.uds"), QString());
    }

    void EveryFileIsWhatAnyDotAnyMeans() {
        QCOMPARE(Wildcard("*.*"), QString("*"));
        QCOMPARE(Wildcard("*aa0.*"), QString("*aa0.*"));
    }

    void ThePickerShowsTheFiltersLetterForLetter() {
        ks::CFileRequest request = Request(ks::CPickerKind::OpenSeveral);
        request.filterIndex = 2;
        const auto dialog = CFileDialogs::MakeDialog(nullptr, request, CFileDialogs::CStyle::Drawn);
        QCOMPARE(dialog->windowTitle(), QString("Select Uds File(s) to Evaluate"));
        const auto* const combo = dialog->findChild<QComboBox*>("fileTypeCombo");
        QVERIFY(combo);
        QCOMPARE(combo->count(), 6);
        for (int i = 0; i < 6; ++i) {
            QCOMPARE(combo->itemText(i), QString::fromStdString(DataTypeFilters()[static_cast<std::size_t>(i)].text));
        }
        QCOMPARE(combo->currentIndex(), 1);
        QCOMPARE(dialog->directory().absolutePath(), QDir(m_folder->path()).absolutePath());
        QCOMPARE(dialog->fileMode(), QFileDialog::ExistingFiles);
    }

    void AFilterIndexOutOfRangeSelectsTheFirst() {
        for (const int index : {-1, 0, 7}) {
            ks::CFileRequest request = Request(ks::CPickerKind::OpenOne);
            request.filterIndex = index;
            const auto dialog = CFileDialogs::MakeDialog(nullptr, request, CFileDialogs::CStyle::Drawn);
            QCOMPARE(dialog->findChild<QComboBox*>("fileTypeCombo")->currentIndex(), 0);
            QCOMPARE(dialog->fileMode(), QFileDialog::ExistingFile);
        }
    }

    void ThePickerStartsWithinTheScreen() {
        const auto dialog =
            CFileDialogs::MakeDialog(nullptr, Request(ks::CPickerKind::OpenOne), CFileDialogs::CStyle::Drawn);
        const QSize screen = dialog->screen()->availableSize();
        QVERIFY(dialog->width() < screen.width() && dialog->height() < screen.height());
        QVERIFY(dialog->width() == 820 || dialog->width() > screen.width() - 60);  // no smaller than necessary
    }

    void SeveralFilesComeBackWithTheFilterTheUserEndedOn() {
        m_dialogs.Expect([](QWidget& window) {
            auto* const combo = window.findChild<QComboBox*>("fileTypeCombo");
            combo->setCurrentIndex(4);
            emit combo->activated(4);
            window.findChild<QLineEdit*>("fileNameEdit")->setText("\"a.uds\" \"b.uds\"");
            OpenButton(window).click();
        });
        const auto picked =
            CFileDialogs(CFileDialogs::CStyle::Drawn).Pick(nullptr, Request(ks::CPickerKind::OpenSeveral));
        QVERIFY(picked);
        QCOMPARE(picked->paths, Native({"a.uds", "b.uds"}));
        QCOMPARE(picked->filterIndex, 5);
    }

    void TheFilterChosenAtTheStartComesBackUntouched() {
        for (int index = 1; index <= 6; ++index) {
            ks::CFileRequest request = Request(ks::CPickerKind::OpenOne);
            request.filterIndex = index;
            // A file that the filter shows; for any file, one without a dot.
            const std::string& pattern = request.filters[static_cast<std::size_t>(index - 1)].pattern;
            const QString name = pattern == "*.*" ? "plain" : QString::fromStdString(pattern).replace('*', 'x');
            Write(name, "x");
            m_dialogs.Expect([&](QWidget& window) {
                window.findChild<QLineEdit*>("fileNameEdit")->setText(name);
                OpenButton(window).click();
            });
            const auto picked = CFileDialogs(CFileDialogs::CStyle::Drawn).Pick(nullptr, request);
            QVERIFY(picked);
            QCOMPARE(picked->filterIndex, index);
        }
    }

    void AMissingFileIsNotAccepted() {
        m_dialogs.Expect([this](QWidget& window) {
            auto* const edit = window.findChild<QLineEdit*>("fileNameEdit");
            edit->setText("missing.uds");
            QVERIFY(!OpenButton(window).isEnabled());
            m_dialogs.Expect([](QWidget& box) {
                QVERIFY(qobject_cast<QMessageBox*>(&box) != nullptr);
                box.close();
            });
            QTest::keyClick(edit, Qt::Key_Return);
            QVERIFY(window.isVisible());
            window.close();
        });
        QVERIFY(!CFileDialogs(CFileDialogs::CStyle::Drawn).Pick(nullptr, Request(ks::CPickerKind::OpenOne)));
    }

    void CancelGivesNothing() {
        m_dialogs.Expect([](QWidget& window) { window.close(); });
        QVERIFY(!CFileDialogs(CFileDialogs::CStyle::Drawn).Pick(nullptr, Request(ks::CPickerKind::OpenOne)));
    }

    void SavingTakesANewNameEvenWhereAFileMustExist() {
        ks::CFileRequest request = Request(ks::CPickerKind::Save);
        m_dialogs.Expect([](QWidget& window) {
            window.findChild<QLineEdit*>("fileNameEdit")->setText("new.hit");
            OpenButton(window).click();
        });
        const auto picked = CFileDialogs(CFileDialogs::CStyle::Drawn).Pick(nullptr, request);
        QVERIFY(picked);
        QCOMPARE(picked->paths, Native({"new.hit"}));
    }

    void SavingOverAFileAsksOnlyWhenTold() {
        ks::CFileRequest request = Request(ks::CPickerKind::Save);
        const auto quiet = CFileDialogs::MakeDialog(nullptr, request, CFileDialogs::CStyle::Drawn);
        QVERIFY(quiet->testOption(QFileDialog::DontConfirmOverwrite));
        request.shouldAskBeforeOverwriting = true;
        const auto asking = CFileDialogs::MakeDialog(nullptr, request, CFileDialogs::CStyle::Drawn);
        QVERIFY(!asking->testOption(QFileDialog::DontConfirmOverwrite));

        request.shouldAskBeforeOverwriting = false;
        m_dialogs.Expect([](QWidget& window) {
            window.findChild<QLineEdit*>("fileNameEdit")->setText("a.uds");
            OpenButton(window).click();
            QVERIFY(!window.isVisible());
        });
        const auto picked = CFileDialogs(CFileDialogs::CStyle::Drawn).Pick(nullptr, request);
        QVERIFY(picked);
        QCOMPARE(picked->paths, Native({"a.uds"}));
    }

private:
    ks::CFileRequest Request(ks::CPickerKind kind) const {
        ks::CFileRequest request;
        request.kind = kind;
        request.title = "Select Uds File(s) to Evaluate";
        request.filters = DataTypeFilters();
        request.filterIndex = 6;
        request.folder = m_folder->path().toStdString();
        request.mustExist = true;
        return request;
    }

    static QPushButton& OpenButton(const QWidget& window) {
        const auto* const box = window.findChild<QDialogButtonBox*>("buttonBox");
        QPushButton* const open = box->button(QDialogButtonBox::Open);
        return open != nullptr ? *open : *box->button(QDialogButtonBox::Save);
    }

    void Write(const QString& name, const QByteArray& bytes) {
        QFile file(m_folder->filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) qFatal("cannot write a test file");
    }

    QStringList Native(const QStringList& names) const {
        QStringList paths;
        for (const QString& name : names) paths.append(QDir::toNativeSeparators(m_folder->filePath(name)));
        return paths;
    }

    CDialogDriver m_dialogs;
    std::unique_ptr<QTemporaryDir> m_folder;
};

QTEST_MAIN(CFilePickerTest)
#include "file_picker_test.moc"
