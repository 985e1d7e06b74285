#pragma once

#include <QCoreApplication>
#include <QString>

#include <array>

class QLabel;
class QProgressBar;
class QStatusBar;

/// What the status bar shows: a message, the progress of a run, the chart's readout, and the keyboard's locks.
class CStatusLine {
    Q_DECLARE_TR_FUNCTIONS(CStatusLine)

public:
    /// Puts its parts into `bar`, which owns them and must outlive the line.
    explicit CStatusLine(QStatusBar& bar);

    void ShowMessage(const QString& text);
    /// The pointer's position in the chart; empty hides it.
    void ShowReadout(const QString& text);
    /// `done` of `total` steps; `path` is the file being processed.
    void ShowProgress(int done, int total, const QString& path);
    void EndProgress();
    /// Reads the keyboard's locks again; they stay hidden where the platform does not report them.
    void ShowIndicators();

private:
    QLabel* m_message;
    QProgressBar* m_progress;
    QLabel* m_readout;
    std::array<QLabel*, 3> m_indicators{};
};
