#include "viewer/header_pages.h"

#include <QTabWidget>
#include <QVBoxLayout>
#include <span>

#include "viewer/field_form.h"
#include "viewer/make_child.h"

namespace ksres {

using enum ks::CHeaderGroupId;

CHeaderPage::CHeaderPage(std::initializer_list<ks::CHeaderGroupId> groups, int columns, QWidget* parent)
    : QWidget(parent) {
    auto* const rows = MakeChild<QVBoxLayout>(this);
    rows->setContentsMargins(0, 0, 0, 0);
    if (groups.size() == 0) return;
    m_form = MakeChild<CFieldForm>(std::span(groups.begin(), groups.size()), columns, this);
    rows->addWidget(m_form);
}

void CHeaderPage::AddSubPage(CHeaderPage* page, const QString& title) {
    if (m_tabs == nullptr) {
        m_tabs = MakeChild<QTabWidget>(this);
        layout()->addWidget(m_tabs);
    }
    m_tabs->addTab(page, title);
    m_subPages.push_back(page);
}

void CHeaderPage::ShowRecord(const ks::CData& record) {
    if (m_form != nullptr) m_form->ShowRecord(record);
    for (CHeaderPage* const page : m_subPages) page->ShowRecord(record);
}

CUDSTestDialog::CUDSTestDialog(QWidget* parent) : CHeaderPage({File, Test}, 2, parent) {}

CUDSVehDialog::CUDSVehDialog(QWidget* parent) : CHeaderPage({}, 1, parent) {
    AddSubPage(MakeChild<CUdsVeh1Dialog>(this), tr("Vehicle One"));
    AddSubPage(MakeChild<CUdsVeh2Dialog>(this), tr("Vehicle Two"));
}

CUdsVeh1Dialog::CUdsVeh1Dialog(QWidget* parent) : CHeaderPage({VehicleOne}, 2, parent) {}

CUdsVeh2Dialog::CUdsVeh2Dialog(QWidget* parent) : CHeaderPage({VehicleTwo}, 2, parent) {}

CUDSOCCDialog::CUDSOCCDialog(QWidget* parent) : CHeaderPage({}, 1, parent) {
    AddSubPage(MakeChild<CUdsOcc1Dialog>(this), tr("Occupant One"));
    AddSubPage(MakeChild<CUdsOcc2Dialog>(this), tr("Occupant Two"));
    AddSubPage(MakeChild<CUdsOccupantInjuryDialog>(this), tr("Occupant InJury"));
}

CUdsOcc1Dialog::CUdsOcc1Dialog(QWidget* parent) : CHeaderPage({OccupantOne}, 2, parent) {}

CUdsOcc2Dialog::CUdsOcc2Dialog(QWidget* parent) : CHeaderPage({OccupantTwo}, 2, parent) {}

CUdsOccupantInjuryDialog::CUdsOccupantInjuryDialog(QWidget* parent) : CHeaderPage({OccupantInjury}, 2, parent) {}

CUDSCurveDialog::CUDSCurveDialog(QWidget* parent) : CHeaderPage({Curve}, 2, parent) {
    AddSubPage(MakeChild<CUdsCurveDataDialog>(this), tr("Curve Data"));
    AddSubPage(MakeChild<CUdsSensorInfoDialog>(this), tr("Sensor Info"));
    AddSubPage(MakeChild<CUdsCurveUserDialog>(this), tr("Curve User Data"));
}

CUdsCurveDataDialog::CUdsCurveDataDialog(QWidget* parent) : CHeaderPage({CurveData}, 2, parent) {}

CUdsSensorInfoDialog::CUdsSensorInfoDialog(QWidget* parent) : CHeaderPage({Sensor}, 2, parent) {}

CUdsCurveUserDialog::CUdsCurveUserDialog(QWidget* parent) : CHeaderPage({CurveUserData}, 2, parent) {}

}  // namespace ksres
