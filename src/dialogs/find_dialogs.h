// The dialogs of the attribute tool and of "Find by List": frmAttrib ("Copy/Paste
// Attributes") and the two list finders frmListAirNames and frmListAirNodes. Each binds its
// widgets to its form; the rules are the form's.
#pragma once

#include <QDialog>
#include <array>
#include <functional>
#include <string>
#include <vector>

#include "forms/attrib_form.h"

class QCheckBox;
class QLineEdit;
class QListWidget;

namespace karvane::dialogs {

class AttribDialog : public QDialog {
    Q_OBJECT
public:
    AttribDialog(const forms::AttribFields& fields, QWidget* parent = nullptr);
    forms::AttribFields Fields() const;

private:
    void Show(const forms::AttribFields& fields);

    std::array<QCheckBox*, forms::AttribBoxes> boxes_{};
};

// A list of names narrowed by the text typed above it; a click on a name chooses it.
class NameListDialog : public QDialog {
    Q_OBJECT
public:
    // nodes: frmListAirNodes, otherwise frmListAirNames.
    NameListDialog(std::vector<std::string> names, bool nodes, QWidget* parent = nullptr);
    // The name chosen; empty when the dialog was closed without one.
    const std::string& Chosen() const { return chosen_; }

private:
    void Fill(const QString& filter);

    std::vector<std::string> names_;
    std::vector<std::string> shown_;
    std::string chosen_;
    QLineEdit* filter_;
    QListWidget* list_;
};

} // namespace karvane::dialogs
