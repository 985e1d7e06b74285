#pragma once

#include <QFrame>
#include <cstdint>
#include <span>

class QComboBox;

/// "Plot Type:" and the drop-down of the pages that the last run offers; Alt+Y gives it the keyboard.
class CDialogPane : public QFrame {
    Q_OBJECT

public:
    static constexpr int kWidth = 270;  ///< pixels
    static constexpr int kHeight = 24;  ///< pixels

    explicit CDialogPane(QWidget* parent = nullptr);

    /// Refills the drop-down with the names of these pages and selects the first; nobody is told of a choice.
    void SetPages(std::span<const std::int32_t> pageIds);
    /// Selects a page's entry without telling anybody; no entry when the page is not offered.
    void ShowPage(std::int32_t pageId);

signals:
    void PageChosen(int pageId);

private:
    QComboBox* m_pages;
};
