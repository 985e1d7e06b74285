#pragma once

#include <QFrame>

#include <cstdint>
#include <span>

class QComboBox;

/// "Plot Type:" and the drop-down of the pages that the last run offers; Alt+Y moves the focus to it.
class CDialogPane : public QFrame {
    Q_OBJECT

public:
    static constexpr int kWidth = 270;  ///< pixels
    static constexpr int kHeight = 24;  ///< pixels

    explicit CDialogPane(QWidget* parent = nullptr);

    /// Refills the drop-down with the names of these pages and selects the first; emits no signal.
    void SetPages(std::span<const std::int32_t> pageIds);
    /// Selects a page's entry without emitting a signal; selects none when the page is not in the list.
    void ShowPage(std::int32_t pageId);

signals:
    void PageChosen(int pageId);

private:
    QComboBox* m_pages;
};
