// The dialogs of the real-time stations: the input stations (frmRemote), one station at a time
// under its scroll bar with its five channels, and the output file (frmRealOut). Both bind the
// plain fields of the stations; the rules are the exchange's.
#pragma once

#include <QDialog>
#include <array>
#include <optional>

#include "exchange/stations.h"
#include "model/model.h"
#include "ui/user_interface.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QScrollBar;

namespace karvane::dialogs {

class RemoteDialog : public QDialog {
    Q_OBJECT
public:
    RemoteDialog(Model& model, ui::UserInterface& ui, QWidget* parent = nullptr);
    exchange::RemoteFields Fields() const;
    // The input timer's interval once the dialog closed with OK; 0 until then.
    std::int32_t InputInterval() const { return interval_; }

    void accept() override;

private:
    void Show(const exchange::RemoteFields& fields);

    Model& model_;
    ui::UserInterface& ui_;
    char sep_;
    std::int32_t interval_ = 0;
    std::optional<Station> copied_;
    QScrollBar* station_;
    QLabel* number_;
    QLineEdit* name_;
    QCheckBox* update_;
    std::array<std::array<QLineEdit*, 6>, ChannelCount + 1> channels_{}; // [k][column]
    QLineEdit* source_;
    QCheckBox* resim_;
    QLineEdit* timer_;
    QCheckBox* alarm_;
};

class RealOutDialog : public QDialog {
    Q_OBJECT
public:
    RealOutDialog(Model& model, ui::UserInterface& ui, QWidget* parent = nullptr);
    std::int32_t OutputInterval() const { return interval_; }
    void accept() override;

private:
    Model& model_;
    std::int32_t interval_ = 0;
    QLineEdit* file_;
    QLineEdit* timer_;
};

} // namespace karvane::dialogs
