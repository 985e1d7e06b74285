#include "app/status_line.h"

#include "app/control_ids.h"
#include "app/keyboard_indicators.h"
#include "app/messages.h"

#include <QLabel>
#include <QProgressBar>
#include <QStatusBar>

#include <optional>

namespace {

constexpr int kProgressWidth = 160;  // pixels

QLabel* AddIndicator(QStatusBar& bar, const QString& text, const QString& meaning) {
    auto* const label = new QLabel(text, &bar);
    label->setToolTip(meaning);
    label->setAccessibleName(meaning);
    bar.addPermanentWidget(label);
    return label;
}

}  // namespace

CStatusLine::CStatusLine(QStatusBar& bar)
    : m_message(new QLabel(&bar)), m_progress(new QProgressBar(&bar)), m_readout(new QLabel(&bar)) {
    bar.setObjectName(QStringLiteral("statusBar"));
    bar.setProperty("controlId", kStatusBarId);
    m_message->setObjectName(QStringLiteral("statusMessage"));
    m_message->setTextFormat(Qt::PlainText);  // file names may look like markup
    // A long path must not widen the window.
    m_message->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    bar.addWidget(m_message, 1);
    m_progress->setObjectName(QStringLiteral("progress"));
    m_progress->setAccessibleName(tr("Progress of the comparison"));
    m_progress->setFixedWidth(kProgressWidth);
    m_progress->hide();
    bar.addPermanentWidget(m_progress);
    m_readout->setObjectName(QStringLiteral("readout"));
    // A description, not a name: screen readers would read a name instead of the text.
    m_readout->setAccessibleDescription(tr("Point under the pointer"));
    bar.addPermanentWidget(m_readout);
    m_indicators = {AddIndicator(bar, tr("CAP"), tr("Caps Lock")), AddIndicator(bar, tr("NUM"), tr("Num Lock")),
                    AddIndicator(bar, tr("SCRL"), tr("Scroll Lock"))};
    ShowMessage(app_message::kReady);
    ShowIndicators();
}

void CStatusLine::ShowMessage(const QString& text) {
    m_message->setText(text);
    m_message->setToolTip(text);
    m_message->setAccessibleName(text);
}

void CStatusLine::ShowReadout(const QString& text) {
    m_readout->setText(text);
}

void CStatusLine::ShowProgress(int done, int total, const QString& path) {
    m_progress->setRange(0, total);
    m_progress->setValue(done);
    m_progress->show();
    ShowMessage(path);
}

void CStatusLine::EndProgress() {
    m_progress->hide();
    m_progress->reset();
}

void CStatusLine::ShowIndicators() {
    const std::optional<CKeyboardIndicators> locks = ReadKeyboardIndicators();
    for (QLabel* const label : m_indicators) label->setVisible(locks.has_value());
    if (!locks) return;
    m_indicators[0]->setEnabled(locks->isCapsLockOn);
    m_indicators[1]->setEnabled(locks->isNumLockOn);
    m_indicators[2]->setEnabled(locks->isScrollLockOn);
}
