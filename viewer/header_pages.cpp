#include "viewer/header_pages.h"

#include "signal/data.h"
#include "signal/header_groups.h"
#include "viewer/field_form.h"
#include "widgets/make_child.h"

#include <QVBoxLayout>

#include <initializer_list>
#include <span>

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

QTabWidget& CHeaderPage::Tabs() {
    if (m_tabs == nullptr) {
        m_tabs = MakeChild<QTabWidget>(this);
        layout()->addWidget(m_tabs);
    }
    return *m_tabs;
}

void CHeaderPage::AddSubPage(CHeaderPage* page, const QString& title) {
    m_tabs->addTab(page, title);
    m_subPages.push_back(page);
}

void CHeaderPage::ShowRecord(const ks::CData& record) {
    if (m_form != nullptr) m_form->ShowRecord(record);
    for (CHeaderPage* const page : m_subPages) page->ShowRecord(record);
}

CUDSTestDialog::CUDSTestDialog(QWidget* parent) : CHeaderPage({File, Test}, 2, parent) {}

CUDSVehDialog::CUDSVehDialog(QWidget* parent) : CHeaderPage({}, 1, parent) {
    AddSubPage<CUdsVeh1Dialog>(tr("Vehicle One"));
    AddSubPage<CUdsVeh2Dialog>(tr("Vehicle Two"));
}

CUdsVeh1Dialog::CUdsVeh1Dialog(QWidget* parent) : CHeaderPage({VehicleOne}, 2, parent) {}

CUdsVeh2Dialog::CUdsVeh2Dialog(QWidget* parent) : CHeaderPage({VehicleTwo}, 2, parent) {}

CUDSOCCDialog::CUDSOCCDialog(QWidget* parent) : CHeaderPage({}, 1, parent) {
    AddSubPage<CUdsOcc1Dialog>(tr("Occupant One"));
    AddSubPage<CUdsOcc2Dialog>(tr("Occupant Two"));
    AddSubPage<CUdsOccupantInjuryDialog>(tr("Occupant InJury"));
}

CUdsOcc1Dialog::CUdsOcc1Dialog(QWidget* parent) : CHeaderPage({OccupantOne}, 2, parent) {}

CUdsOcc2Dialog::CUdsOcc2Dialog(QWidget* parent) : CHeaderPage({OccupantTwo}, 2, parent) {}

CUdsOccupantInjuryDialog::CUdsOccupantInjuryDialog(QWidget* parent) : CHeaderPage({OccupantInjury}, 2, parent) {}

CUDSCurveDialog::CUDSCurveDialog(QWidget* parent) : CHeaderPage({Curve}, 2, parent) {
    AddSubPage<CUdsCurveDataDialog>(tr("Curve Data"));
    AddSubPage<CUdsSensorInfoDialog>(tr("Sensor Info"));
    AddSubPage<CUdsCurveUserDialog>(tr("Curve User Data"));
}

CUdsCurveDataDialog::CUdsCurveDataDialog(QWidget* parent) : CHeaderPage({CurveData}, 2, parent) {}

CUdsSensorInfoDialog::CUdsSensorInfoDialog(QWidget* parent) : CHeaderPage({Sensor}, 2, parent) {}

CUdsCurveUserDialog::CUdsCurveUserDialog(QWidget* parent) : CHeaderPage({CurveUserData}, 2, parent) {}

}  // namespace ksres
