#pragma once

#include "viewer/viewer_host.h"

#include <QGuiApplication>
#include <QPrinter>
#include <QStringList>

#include <functional>
#include <optional>
#include <vector>

/// Records what the viewer said and asked, and gives the prepared answers; cancels without one.
class CRecordedViewerHost : public CViewerHost {
public:
    QStringList errors;
    bool wasWaiting = false;  ///< the wait cursor was shown before an error
    std::vector<ks::CFileRequest> saveRequests;
    std::optional<QString> savePath;
    std::function<bool(QPrinter&)> choosePrinter;
    QList<int> pageCounts;  ///< of the reports to print

    void ShowError(QWidget*, const QString& text) override {
        errors.append(text);
        wasWaiting = wasWaiting || QGuiApplication::overrideCursor() != nullptr;
    }
    std::optional<QString> AskSavePath(QWidget*, const ks::CFileRequest& request) override {
        saveRequests.push_back(request);
        return savePath;
    }
    bool AskPrinter(QWidget*, QPrinter& printer, int pageCount) override {
        pageCounts.append(pageCount);
        return choosePrinter && choosePrinter(printer);
    }
};
