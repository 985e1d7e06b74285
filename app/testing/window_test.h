#pragma once

#include "app/testing/window_fixture.h"

#include <QApplication>
#include <QObject>
#include <QTest>

#include <memory>
#include <string>
#include <utility>

/// Base of the main window's tests: a window for every test function, opened in init and closed in cleanup.
class CWindowTest : public QObject {
protected:
    void OpenWindow(std::unique_ptr<CChartControl> chart = nullptr) {
        m_window = std::make_unique<CWindowFixture>(std::move(chart));
    }

    /// The test expected every dialog, the wait cursor was not shown over any of them, and it is gone.
    void CloseWindow() {
        if (m_window == nullptr) return;
        const QString faults = m_window->dialogs.TakeFaults().join(", ");
        const bool wasWaiting = m_window->errorLists.wasWaiting;
        m_window.reset();
        QCOMPARE(faults, QString());
        QVERIFY(!wasWaiting);
        QVERIFY(QApplication::overrideCursor() == nullptr);
    }

    CMainFrame& Frame() { return *m_window->frame; }
    void Trigger(CCommandId id) { Frame().Action(id)->trigger(); }

    static std::string Sled(int number) { return CWindowFixture::Sled(number); }
    static std::string Force(int number) { return CWindowFixture::Force(number); }

    std::unique_ptr<CWindowFixture> m_window;
};
