#pragma once

#include <QPrintPreviewWidget>
#include <QWidget>

#include <functional>
#include <memory>

class QComboBox;
class QLabel;
class QLayout;
class QPrinter;
class QToolButton;

namespace ksres {

/// Paints the report onto a printer; the preview passes one that only shows the pages.
using PaintReport = std::function<void(QPrinter& printer)>;

/// The pages of the report as they would be printed.
class CKsPreviewView : public QPrintPreviewWidget {
    Q_OBJECT

public:
    /// `printer` must outlive the view.
    CKsPreviewView(QPrinter& printer, const PaintReport& paint, QWidget* parent = nullptr);
};

/// The pages with their controls: paper, zoom, and page navigation. Initially without pages, but as large as with
/// them.
class CViewPrintPreview : public QWidget {
    Q_OBJECT

public:
    explicit CViewPrintPreview(QWidget* parent = nullptr);

    /// Starts showing the report's pages. `printer` must outlive the view.
    void ShowPages(QPrinter& printer, const PaintReport& paint);
    [[nodiscard]] bool HasPages() const { return m_view != nullptr; }
    /// The last control in the tab order before the pages.
    [[nodiscard]] QWidget* LastControl() const { return m_lastControl; }

    /// Repaints the pages for the printer's paper.
    void Refresh();

private:
    QLayout* MakePlaceControls();
    QLayout* MakeZoomControls();
    QToolButton* MakeButton(const char* id, const QString& text, const QString& toolTip);
    void ShowPaper();
    void ShowPlace();
    void TakePaper(int index);
    void GoBy(int pages);

    QPrinter* m_printer = nullptr;
    CKsPreviewView* m_view = nullptr;
    QWidget* m_frame;  ///< holds the view, with its own size
    QComboBox* m_paperBox;
    QToolButton* m_previous = nullptr;
    QToolButton* m_next = nullptr;
    QLabel* m_placeLabel;
    QWidget* m_lastControl = nullptr;  ///< the pages follow it in the tab order
};

/// The page of the property sheet with the report's preview. Painting waits until the page is shown.
class CPrintPreviewer : public QWidget {
    Q_OBJECT

public:
    explicit CPrintPreviewer(PaintReport paint, QWidget* parent = nullptr);
    ~CPrintPreviewer() override;

    /// The report or its settings have changed.
    void Refresh();

    /// The printer whose paper the preview shows, looked up on first use because that can take a moment.
    QPrinter& Printer();

    /// The last control in the tab order before the pages.
    [[nodiscard]] QWidget* LastControl() const { return m_view->LastControl(); }

    /// Enough for the controls and a legible page.
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    PaintReport m_paint;
    std::unique_ptr<QPrinter> m_printer;
    CViewPrintPreview* m_view;
    bool m_isStale = true;
};

}  // namespace ksres
