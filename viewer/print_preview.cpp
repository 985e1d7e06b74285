#include "viewer/print_preview.h"

#include "viewer/printer.h"
#include "widgets/make_child.h"

#include <QComboBox>
#include <QGraphicsView>
#include <QHBoxLayout>
#include <QLabel>
#include <QPageSize>
#include <QPrinter>
#include <QSignalBlocker>
#include <QToolButton>
#include <QVBoxLayout>

#include <initializer_list>
#include <memory>
#include <utility>

namespace ksres {
namespace {

// A page is legible at this many characters and lines, and distinguishable at this few lines.
constexpr int kUsualCharacters = 100;
constexpr int kUsualLines = 30;
constexpr int kLeastLines = 6;
constexpr int kPaperCharacters = 10;

QString PlaceText(int page, int count) {
    //: the page shown, of how many
    return CViewPrintPreview::tr("Page %1 of %2").arg(page).arg(count);
}

}  // namespace

// The pages.

CKsPreviewView::CKsPreviewView(QPrinter& printer, const PaintReport& paint, QWidget* parent)
    : QPrintPreviewWidget(&printer, parent) {
    setObjectName("previewView");
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);  // it takes the available room
    setAccessibleName(tr("Print preview"));
    connect(this, &QPrintPreviewWidget::paintRequested, this, [paint](QPrinter* target) { paint(*target); });
    const auto views = findChildren<QGraphicsView*>();
    for (QGraphicsView* const view : views) {
        view->setAccessibleName(tr("Pages of the report"));
        view->setAcceptDrops(false);  // files dropped on it are the window's
        view->viewport()->setAcceptDrops(false);
    }
}

// The pages and their controls.

CViewPrintPreview::CViewPrintPreview(QWidget* parent)
    : QWidget(parent),
      m_frame(MakeChild<QWidget>(this)),
      m_paperBox(MakeChild<QComboBox>(this)),
      m_placeLabel(MakeChild<QLabel>(this)) {
    auto* const rows = MakeChild<QVBoxLayout>(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->addLayout(MakePlaceControls());
    rows->addLayout(MakeZoomControls());
    rows->addWidget(m_frame, 1);
    m_frame->setMinimumHeight(fontMetrics().height() * kLeastLines);
    auto* const frameLayout = MakeChild<QVBoxLayout>(m_frame);
    frameLayout->setContentsMargins(0, 0, 0, 0);
    frameLayout->setSizeConstraint(QLayout::SetNoConstraint);
}

void CViewPrintPreview::ShowPages(QPrinter& printer, const PaintReport& paint) {
    m_printer = &printer;
    m_view = MakeChild<CKsPreviewView>(printer, paint, m_frame);
    m_frame->layout()->addWidget(m_view);
    connect(m_view, &QPrintPreviewWidget::previewChanged, this, &CViewPrintPreview::ShowPlace);
    m_view->fitInView();
    setTabOrder(m_lastControl, m_view->findChild<QGraphicsView*>());
}

void CViewPrintPreview::Refresh() {
    ShowPaper();
    m_view->updatePreview();
    ShowPlace();
}

QLayout* CViewPrintPreview::MakePlaceControls() {
    auto* const paperLabel = MakeChild<QLabel>(tr("Pape&r:"), this);
    paperLabel->setBuddy(m_paperBox);
    m_paperBox->setObjectName("paperBox");
    m_paperBox->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_paperBox->setMinimumContentsLength(kPaperCharacters);
    connect(m_paperBox, &QComboBox::activated, this, &CViewPrintPreview::TakePaper);
    m_placeLabel->setObjectName("placeLabel");
    m_placeLabel->setMinimumWidth(fontMetrics().horizontalAdvance(PlaceText(88, 88)));
    m_previous = MakeButton("previousPageButton", tr("Previous"), tr("Previous page"));
    m_next = MakeButton("nextPageButton", tr("Next"), tr("Next page"));
    connect(m_previous, &QToolButton::clicked, this, [this] { GoBy(-1); });
    connect(m_next, &QToolButton::clicked, this, [this] { GoBy(1); });

    auto row = std::make_unique<QHBoxLayout>();
    row->addWidget(paperLabel);
    row->addWidget(m_paperBox);
    row->addStretch();
    for (QWidget* const widget : std::initializer_list<QWidget*>{m_previous, m_placeLabel, m_next})
        row->addWidget(widget);
    return row.release();  // the layout it is added to owns it
}

QLayout* CViewPrintPreview::MakeZoomControls() {
    QToolButton* const zoomIn = MakeButton("zoomInButton", tr("Zoom In"), tr("Show the pages larger"));
    QToolButton* const zoomOut = MakeButton("zoomOutButton", tr("Zoom Out"), tr("Show the pages smaller"));
    QToolButton* const fitPage = MakeButton("fitPageButton", tr("Whole Page"), tr("Show one whole page"));
    QToolButton* const fitWidth =
        MakeButton("fitWidthButton", tr("Page Width"), tr("Fit the page width to the window"));
    connect(zoomIn, &QToolButton::clicked, this, [this] { m_view->zoomIn(); });
    connect(zoomOut, &QToolButton::clicked, this, [this] { m_view->zoomOut(); });
    connect(fitPage, &QToolButton::clicked, this, [this] { m_view->fitInView(); });
    connect(fitWidth, &QToolButton::clicked, this, [this] { m_view->fitToWidth(); });

    auto row = std::make_unique<QHBoxLayout>();
    for (QToolButton* const button : {zoomIn, zoomOut, fitPage, fitWidth}) row->addWidget(button);
    row->addStretch();
    m_lastControl = fitWidth;
    return row.release();  // the layout it is added to owns it
}

QToolButton* CViewPrintPreview::MakeButton(const char* id, const QString& text, const QString& toolTip) {
    auto* const button = MakeChild<QToolButton>(this);
    button->setObjectName(id);
    button->setText(text);
    button->setToolTip(toolTip);
    button->setAccessibleName(toolTip);
    button->setFocusPolicy(Qt::StrongFocus);
    return button;
}

/// Letter and A4 are always offered; another paper is offered while the printer uses it.
void CViewPrintPreview::ShowPaper() {
    const QPageSize::PageSizeId current = m_printer->pageLayout().pageSize().id();
    const QSignalBlocker quiet(m_paperBox);
    m_paperBox->clear();
    for (const QPageSize::PageSizeId id : {QPageSize::Letter, QPageSize::A4})
        m_paperBox->addItem(id == QPageSize::Letter ? tr("Letter") : tr("A4"), id);
    if (m_paperBox->findData(current) < 0) m_paperBox->addItem(m_printer->pageLayout().pageSize().name(), current);
    m_paperBox->setCurrentIndex(m_paperBox->findData(current));
}

void CViewPrintPreview::TakePaper(int index) {
    const auto id = static_cast<QPageSize::PageSizeId>(m_paperBox->itemData(index).toInt());
    if (id == m_printer->pageLayout().pageSize().id()) return;
    m_printer->setPageSize(QPageSize(id));
    Refresh();
}

void CViewPrintPreview::ShowPlace() {
    const int page = m_view->currentPage();
    const int count = m_view->pageCount();
    m_placeLabel->setText(PlaceText(page, count));
    m_previous->setEnabled(page > 1);
    m_next->setEnabled(page < count);
}

void CViewPrintPreview::GoBy(int pages) {
    m_view->setCurrentPage(m_view->currentPage() + pages);
    ShowPlace();
}

// The page of the sheet.

CPrintPreviewer::CPrintPreviewer(PaintReport paint, QWidget* parent)
    : QWidget(parent), m_paint(std::move(paint)), m_view(MakeChild<CViewPrintPreview>(this)) {
    MakeChild<QVBoxLayout>(this)->addWidget(m_view);
}

CPrintPreviewer::~CPrintPreviewer() {
    const std::unique_ptr<QWidget> gone(m_view);  // destroyed before the printer that it shows
}

void CPrintPreviewer::Refresh() {
    m_isStale = true;
    if (!isVisible() || !m_view->HasPages()) return;
    m_view->Refresh();
    m_isStale = false;
}

QPrinter& CPrintPreviewer::Printer() {
    if (!m_printer) {
        m_printer = std::make_unique<QPrinter>();
        m_printer->setFullPage(true);
        if (m_printer->printerName().isEmpty()) m_printer->setPageSize(UsualPaper());  // no printer to ask
    }
    return *m_printer;
}

QSize CPrintPreviewer::sizeHint() const {
    const QSize legible(fontMetrics().averageCharWidth() * kUsualCharacters, fontMetrics().height() * kUsualLines);
    return QWidget::sizeHint().expandedTo(legible);
}

void CPrintPreviewer::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (!m_view->HasPages()) m_view->ShowPages(Printer(), m_paint);
    if (m_isStale) Refresh();
}

}  // namespace ksres
