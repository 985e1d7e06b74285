#include "app/dialogs/select_files.h"

#include "app/dialogs/data_type_filters.h"
#include "app/dialogs/file_picker.h"
#include "app/dialogs/number_field.h"
#include "app/dropped_files.h"
#include "app/message_box.h"
#include "app/messages.h"
#include "app/settings.h"
#include "app/ui_select_files.h"
#include "compare/document_host.h"
#include "compare/setting_keys.h"
#include "files/hit_list.h"
#include "files/replacing_file.h"
#include "signal/channel_class.h"
#include "widgets/messages.h"
#include "widgets/screen_room.h"
#include "widgets/take_copy.h"

#include <QDir>
#include <QDropEvent>
#include <QMimeData>
#include <QPushButton>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

QString ClassText(std::int32_t channelClass) {
    return QStringLiteral("CFC%1").arg(channelClass);
}

int ClassItem(std::int32_t channelClass) {
    const auto* const found = std::ranges::find(ks::kChannelClasses, channelClass);
    return found == ks::kChannelClasses.end() ? -1 : static_cast<int>(found - ks::kChannelClasses.begin());
}

std::int32_t ClassOfItem(int item) {
    return ks::kChannelClasses[static_cast<std::size_t>(std::max(item, 0))];
}

std::vector<std::string> Utf8Paths(const QStringList& paths) {
    std::vector<std::string> utf8;
    for (const QString& path : paths) utf8.push_back(path.toStdString());
    return utf8;
}

}  // namespace

CSelectFiles::CSelectFiles(CFileSelection offered, CSettings& settings, CFilePicker& picker, CMessages& messages,
                           QWidget* parent)
    : QDialog(parent),
      m_ui(std::make_unique<Ui::CSelectFiles>()),
      m_selection(std::move(offered)),
      m_settings(settings),
      m_picker(picker),
      m_messages(messages) {
    m_ui->setupUi(this);
    SetShortcuts();
    FitNumberField(*m_ui->minTimeEdit);
    FitNumberField(*m_ui->maxTimeEdit);
    ShowSelection();
    ConnectControls();
    EnableControls();
    EnableListButtons();
    resize(WithinScreen(size(), *this));
}

CSelectFiles::~CSelectFiles() = default;

void CSelectFiles::SetShortcuts() {
    // Not in the form: a button loses its shortcut when it gets its text, which the form sets last. Not by "&" in the
    // texts, which are settled. Not O or C, which many desktops use for OK and Cancel.
    const auto shortcuts = std::to_array<std::pair<QAbstractButton*, Qt::Key>>({
        {m_ui->addButton, Qt::Key_A},
        {m_ui->removeButton, Qt::Key_R},
        {m_ui->moveUpButton, Qt::Key_U},
        {m_ui->moveDownButton, Qt::Key_D},
        {m_ui->readHitListButton, Qt::Key_H},
        {m_ui->saveHitListButton, Qt::Key_S},
        {m_ui->signalRadio, Qt::Key_L},
        {m_ui->browseButton, Qt::Key_B},
        {m_ui->averageRadio, Qt::Key_V},
        {m_ui->filterCheck, Qt::Key_F},
        {m_ui->truncateCheck, Qt::Key_T},
    });
    for (const auto& [button, key] : shortcuts) button->setShortcut(QKeySequence(Qt::ALT | key));
}

void CSelectFiles::ShowSelection() {
    for (const std::int32_t channelClass : ks::kChannelClasses) m_ui->classCombo->addItem(ClassText(channelClass));
    m_ui->fileList->AppendFiles(m_selection.files);
    m_ui->referenceEdit->setText(QDir::toNativeSeparators(QString::fromStdString(m_selection.referencePath)));
    (m_selection.isReferenceAverage ? m_ui->averageRadio : m_ui->signalRadio)->setChecked(true);
    m_ui->filterCheck->setChecked(m_selection.shouldFilter);
    m_ui->classCombo->setCurrentIndex(ClassItem(m_selection.channelClass));
    m_ui->truncateCheck->setChecked(m_selection.shouldTruncate);
    m_ui->minTimeEdit->setText(NumberText(m_selection.windowStart));
    m_ui->maxTimeEdit->setText(NumberText(m_selection.windowEnd));
}

void CSelectFiles::ConnectControls() {
    connect(m_ui->addButton, &QPushButton::clicked, this, &CSelectFiles::AddFiles);
    connect(m_ui->removeButton, &QPushButton::clicked, m_ui->fileList, &CFileList::RemoveSelected);
    connect(m_ui->moveUpButton, &QPushButton::clicked, m_ui->fileList, &CFileList::MoveSelectedUp);
    connect(m_ui->moveDownButton, &QPushButton::clicked, m_ui->fileList, &CFileList::MoveSelectedDown);
    connect(m_ui->readHitListButton, &QPushButton::clicked, this, &CSelectFiles::ReadHitList);
    connect(m_ui->saveHitListButton, &QPushButton::clicked, this, &CSelectFiles::SaveHitList);
    connect(m_ui->browseButton, &QPushButton::clicked, this, &CSelectFiles::BrowseReference);
    // Queued: the program that the files come from waits until the drop has ended, and a message may open.
    connect(m_ui->fileList, &CFileList::PathsDropped, this, &CSelectFiles::TakeDropped, Qt::QueuedConnection);
    connect(m_ui->fileList, &CFileList::itemSelectionChanged, this, &CSelectFiles::EnableListButtons);
    connect(m_ui->averageRadio, &QRadioButton::toggled, this, &CSelectFiles::EnableControls);
    connect(m_ui->filterCheck, &QCheckBox::toggled, this, &CSelectFiles::EnableControls);
    connect(m_ui->truncateCheck, &QCheckBox::toggled, this, &CSelectFiles::EnableControls);
    m_ui->referenceEdit->installEventFilter(this);
}

void CSelectFiles::EnableControls() {
    const bool isOneFile = !m_ui->averageRadio->isChecked();
    m_ui->referenceEdit->setEnabled(isOneFile);
    m_ui->browseButton->setEnabled(isOneFile);
    m_ui->classCombo->setEnabled(m_ui->filterCheck->isChecked());
    const bool isCut = m_ui->truncateCheck->isChecked();
    m_ui->minTimeEdit->setEnabled(isCut);
    m_ui->maxTimeEdit->setEnabled(isCut);
    if (!isCut) ResetInvalidTimes();
}

void CSelectFiles::EnableListButtons() {
    const bool isAnySelected = !m_ui->fileList->selectedItems().isEmpty();
    m_ui->moveUpButton->setEnabled(isAnySelected);
    m_ui->moveDownButton->setEnabled(isAnySelected);
}

void CSelectFiles::ResetInvalidTimes() {
    // OK reads the times even when they are not used, and the user could not correct them in a disabled field.
    if (!NumberFromText(m_ui->minTimeEdit->text())) m_ui->minTimeEdit->setText(NumberText(m_selection.windowStart));
    if (!NumberFromText(m_ui->maxTimeEdit->text())) m_ui->maxTimeEdit->setText(NumberText(m_selection.windowEnd));
}

ks::CFileRequest CSelectFiles::SignalFileRequest() const {
    ks::CFileRequest request;
    request.filters = DataTypeFilters();
    request.filterIndex = m_settings.Get(setting::kDataType);
    request.mustExist = true;
    return request;
}

void CSelectFiles::AddFiles() {
    ks::CFileRequest request = SignalFileRequest();
    request.kind = ks::CPickerKind::OpenSeveral;
    request.title = tr("Select Uds File(s) to Evaluate").toStdString();
    request.folder = m_settings.Get(setting::kInputDir).toStdString();
    const auto picked = m_picker.Pick(this, request);
    if (!picked) return;
    m_settings.Set(setting::kDataType, picked->filterIndex);
    m_ui->fileList->AppendFiles(Utf8Paths(picked->paths));
    m_settings.Set(setting::kInputDir, DriveAndFolder(picked->paths.last()));
}

void CSelectFiles::BrowseReference() {
    ks::CFileRequest request = SignalFileRequest();
    request.title = tr("Select Reference Uds File").toStdString();
    request.folder = m_settings.Get(setting::kReferenceDir).toStdString();
    const auto picked = m_picker.Pick(this, request);
    if (!picked) return;
    m_settings.Set(setting::kDataType, picked->filterIndex);
    m_ui->referenceEdit->setText(picked->paths.first());
    m_settings.Set(setting::kReferenceDir, DriveAndFolder(picked->paths.first()));
}

ks::CFileRequest CSelectFiles::HitListRequest() const {
    ks::CFileRequest request;
    request.filters = HitListFilters();
    request.folder = m_settings.Get(setting::kHitlistDir).toStdString();
    request.mustExist = true;
    return request;
}

void CSelectFiles::ReadHitList() {
    ks::CFileRequest request = HitListRequest();
    request.title = tr("Select Hit List").toStdString();
    const auto picked = m_picker.Pick(this, request);
    if (!picked) return;
    const QString path = picked->paths.first();
    const auto files = ks::ReadHitList(path.toStdString());
    if (!files) {
        m_messages.ShowError(this, app_message::kHitListUnreadable);
        return;
    }
    m_ui->fileList->AppendFiles(*files);
    RememberHitList(path);
}

void CSelectFiles::SaveHitList() {
    ks::CFileRequest request = HitListRequest();
    request.kind = ks::CPickerKind::Save;
    request.title = tr("Save Hit List as").toStdString();
    const auto picked = m_picker.Pick(this, request);
    if (!picked) return;
    const QString path = picked->paths.first();
    switch (ks::WriteHitList(path.toStdString(), m_ui->fileList->Files())) {
        case ks::CWriteResult::Written:
            RememberHitList(path);
            break;
        case ks::CWriteResult::NotOpened:
            m_messages.ShowError(this, app_message::kHitListUnreadable);
            break;
        case ks::CWriteResult::NotCompleted:
            m_messages.ShowError(this, app_message::kHitListNotCompleted);
            break;
        case ks::CWriteResult::Damaged:
            m_messages.ShowError(this, widget_message::FileDamaged(path));
            break;
    }
}

void CSelectFiles::RememberHitList(const QString& path) {
    m_settings.Set(setting::kHitlistDir, DriveAndFolder(path));
    m_settings.AddRecentFile(path);
}

void CSelectFiles::TakeDropped(const QStringList& paths, int row) {
    const CDroppedFiles dropped = TakeDroppedFiles(paths, m_settings, m_messages, this);
    m_ui->fileList->InsertFiles(row, dropped.files);
    if (!dropped.files.empty() || !dropped.unreadableHitLists.isEmpty()) return;
    m_messages.Show(this, CMessageIcon::Information, windowTitle(),
                    app_message::NothingDropped(CurrentDataTypeText(m_settings)));
}

void CSelectFiles::accept() {
    if (!ReadTimes() || !CheckReference() || !CheckFiles()) return;
    m_selection.files = m_ui->fileList->Files();
    m_selection.referencePath = m_ui->referenceEdit->text().toStdString();
    m_selection.isReferenceAverage = m_ui->averageRadio->isChecked();
    m_settings.Set(setting::kReferenceType, m_selection.isReferenceAverage ? 1 : 0);
    m_selection.shouldFilter = m_ui->filterCheck->isChecked();
    m_selection.shouldFilterReference = m_selection.shouldFilter;  // one check box decides for all signals
    m_selection.channelClass = ClassOfItem(m_ui->classCombo->currentIndex());
    m_selection.shouldTruncate = m_ui->truncateCheck->isChecked();
    CheckTimes();
    QDialog::accept();
}

bool CSelectFiles::ReadTimes() {
    const auto start = ReadNumberField(*m_ui->minTimeEdit, m_messages);
    if (!start) return false;
    const auto end = ReadNumberField(*m_ui->maxTimeEdit, m_messages);
    if (!end) return false;
    m_selection.windowStart = *start;
    m_selection.windowEnd = *end;
    return true;
}

bool CSelectFiles::CheckReference() {
    if (m_ui->averageRadio->isChecked() || !m_ui->referenceEdit->text().isEmpty()) return true;
    m_messages.Beep();
    m_ui->referenceEdit->setFocus();
    return false;
}

bool CSelectFiles::CheckFiles() {
    if (m_ui->fileList->count() > 0) return true;
    m_messages.ShowError(this, app_message::kNoSignals);
    m_ui->fileList->setFocus();
    m_ui->minTimeEdit->setText(NumberText(m_selection.windowStart));
    m_ui->maxTimeEdit->setText(NumberText(m_selection.windowEnd));
    return false;
}

void CSelectFiles::CheckTimes() {
    if (m_selection.windowStart < m_selection.windowEnd) return;
    // Only a warning, whether or not the times are used: they are returned as entered, and the run decides.
    m_messages.Show(this, CMessageIcon::Warning, tr("Error"), app_message::kTimesInWrongOrder);
    m_ui->maxTimeEdit->setFocus();
}

bool CSelectFiles::event(QEvent* event) {
    // A file may have appeared or disappeared while another program was active.
    if (event->type() == QEvent::WindowActivate) m_ui->fileList->RefreshMarks();
    return QDialog::event(event);
}

bool CSelectFiles::eventFilter(QObject* watched, QEvent* event) {
    // The field itself accepts only text; a file dragged onto it would be refused or inserted as a URL.
    const bool isDrag = event->type() == QEvent::DragEnter || event->type() == QEvent::DragMove;
    if (watched != m_ui->referenceEdit || (!isDrag && event->type() != QEvent::Drop)) {
        return QDialog::eventFilter(watched, event);
    }
    auto* const drop = static_cast<QDropEvent*>(event);
    const QStringList paths = LocalPaths(*drop->mimeData());
    if (paths.isEmpty()) return QDialog::eventFilter(watched, event);
    const bool isTaken = TakeAsCopy(*drop);
    if (isTaken && !isDrag) m_ui->referenceEdit->setText(QDir::toNativeSeparators(paths.first()));
    return true;
}
