#pragma once

#include "signal/data.h"
#include "signal/header_groups.h"
#include "widgets/make_child.h"

#include <QTabWidget>
#include <QWidget>

#include <initializer_list>
#include <vector>

class CFieldForm;

namespace ksres {

/// A page of the property sheet that shows groups of the header, with its sub-pages, if any, below.
class CHeaderPage : public QWidget {
    Q_OBJECT

public:
    void ShowRecord(const ks::CData& record);

protected:
    /// @param columns  pairs of label and value side by side
    CHeaderPage(std::initializer_list<ks::CHeaderGroupId> groups, int columns, QWidget* parent);

    /// Adds a sub-page on its own tab. The tab order follows the order of creation: the tabs, then the page.
    template <class SubPage>
    void AddSubPage(const QString& title) {
        AddSubPage(MakeChild<SubPage>(&Tabs()), title);
    }

private:
    QTabWidget& Tabs();
    void AddSubPage(CHeaderPage* page, const QString& title);

    CFieldForm* m_form = nullptr;
    QTabWidget* m_tabs = nullptr;
    std::vector<CHeaderPage*> m_subPages;
};

/// File and test.
class CUDSTestDialog : public CHeaderPage {
    Q_OBJECT

public:
    explicit CUDSTestDialog(QWidget* parent = nullptr);
};

/// Both vehicles.
class CUDSVehDialog : public CHeaderPage {
    Q_OBJECT

public:
    explicit CUDSVehDialog(QWidget* parent = nullptr);
};

class CUdsVeh1Dialog : public CHeaderPage {
    Q_OBJECT

public:
    explicit CUdsVeh1Dialog(QWidget* parent = nullptr);
};

class CUdsVeh2Dialog : public CHeaderPage {
    Q_OBJECT

public:
    explicit CUdsVeh2Dialog(QWidget* parent = nullptr);
};

/// Both occupants, and the injury values of the one whose curve it is.
class CUDSOCCDialog : public CHeaderPage {
    Q_OBJECT

public:
    explicit CUDSOCCDialog(QWidget* parent = nullptr);
};

class CUdsOcc1Dialog : public CHeaderPage {
    Q_OBJECT

public:
    explicit CUdsOcc1Dialog(QWidget* parent = nullptr);
};

class CUdsOcc2Dialog : public CHeaderPage {
    Q_OBJECT

public:
    explicit CUdsOcc2Dialog(QWidget* parent = nullptr);
};

class CUdsOccupantInjuryDialog : public CHeaderPage {
    Q_OBJECT

public:
    explicit CUdsOccupantInjuryDialog(QWidget* parent = nullptr);
};

/// The curve.
class CUDSCurveDialog : public CHeaderPage {
    Q_OBJECT

public:
    explicit CUDSCurveDialog(QWidget* parent = nullptr);
};

class CUdsCurveDataDialog : public CHeaderPage {
    Q_OBJECT

public:
    explicit CUdsCurveDataDialog(QWidget* parent = nullptr);
};

class CUdsSensorInfoDialog : public CHeaderPage {
    Q_OBJECT

public:
    explicit CUdsSensorInfoDialog(QWidget* parent = nullptr);
};

class CUdsCurveUserDialog : public CHeaderPage {
    Q_OBJECT

public:
    explicit CUdsCurveUserDialog(QWidget* parent = nullptr);
};

}  // namespace ksres
