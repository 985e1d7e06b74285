#pragma once

#include "app/commands.h"
#include "app/dialogs/file_picker.h"
#include "app/testing/window_test.h"
#include "files/file_request.h"
#include "tests/support/temp_folder.h"

#include <QByteArray>
#include <QDir>
#include <QString>
#include <QStringList>
#include <QTest>

#include <optional>

/// Base of the tests of what the main window exports.
class CExportsTest : public CWindowTest {
protected:
    static constexpr const char* kUdsFolder = "Settings/UdsOutputDir";
    static constexpr const char* kAsciiFolder = "Settings/AsciiOutputDir";

    void OpenWithSled() {
        OpenWindow();
        m_window->CompareSled();
    }

    static int CommandNumber(CCommandId id) { return static_cast<int>(id); }
    QString Folder(const QString& below = {}) const { return m_window->folder.path() + "/" + below; }
    std::optional<CPickedFiles> Picked(const QString& name) const {
        return CPickedFiles{{QDir::isAbsolutePath(name) ? name : m_window->Path(name)}, 1};
    }
    static QByteArray Bytes(const QString& path) { return QByteArray::fromStdString(ReadAll(path.toStdString())); }

    /// Runs a save command whose user chooses `name` in this test's folder; gives the path.
    QString Save(CCommandId id, const QString& name) {
        m_window->picker.answers.push_back(Picked(name));
        Trigger(id);
        return m_window->Path(name);
    }

    void CheckSaveRequest(const QString& title, const QStringList& filters) {
        QCOMPARE(m_window->picker.requests.size(), std::size_t{1});
        const ks::CFileRequest& request = m_window->picker.requests[0];
        QVERIFY(request.kind == ks::CPickerKind::Save);
        QCOMPARE(QString::fromStdString(request.title), title);
        QCOMPARE(FilterTexts(request), filters);
        QVERIFY(request.shouldHideReadOnly && request.shouldAskBeforeOverwriting);
    }

private:
    static QStringList FilterTexts(const ks::CFileRequest& request) {
        QStringList texts;
        for (const ks::CFileFilter& filter : request.filters) {
            texts.append(QString::fromStdString(filter.text + "|" + filter.pattern));
        }
        return texts;
    }
};
