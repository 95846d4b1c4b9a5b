#include "ui/remote/remote_window.hpp"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace station::ui {

QString remoteSettingsProblem(const RemoteSettings& settings) {
    if (settings.address.isNull()) return QStringLiteral("Not an address.");
    if (!settings.passcode.empty())
        if (const std::string p = remote::AccessGate::passcodeProblem(settings.passcode); !p.empty())
            return QString::fromStdString(p) + QLatin1Char('.');
    if (settings.enabled && !settings.address.isLoopback() && settings.passcode.empty())
        return QStringLiteral("Listening beyond this computer takes a passcode.");
    return {};
}

RemoteWindow::RemoteWindow(const RemoteSettings& settings, QWidget* parent) : QDialog(parent), base_(settings) {
    setWindowTitle(QStringLiteral("Remote control"));
    setObjectName(QStringLiteral("remoteWindow"));
    on_ = new QCheckBox(QStringLiteral("&Remote control on"), this);
    on_->setChecked(settings.enabled);
    address_ = new QComboBox(this);
    address_->setEditable(true);
    address_->addItem(QStringLiteral("127.0.0.1"));
    address_->addItem(QStringLiteral("0.0.0.0"));
    address_->setCurrentText(settings.address.toString());
    address_->setToolTip(QStringLiteral("127.0.0.1: this computer only; 0.0.0.0: every network the computer is on"));
    tcpPort_ = new QSpinBox(this);
    oscPort_ = new QSpinBox(this);
    for (QSpinBox* box : {tcpPort_, oscPort_}) box->setRange(1, 65535);
    tcpPort_->setValue(settings.tcpPort);
    oscPort_->setValue(settings.oscPort);
    passcode_ = new QLineEdit(QString::fromStdString(settings.passcode), this);
    passcode_->setObjectName(QStringLiteral("passcode"));
    auto* generate = new QPushButton(QStringLiteral("&Generate"), this);
    generate->setObjectName(QStringLiteral("generatePasscode"));
    auto* passcodeRow = new QHBoxLayout;
    passcodeRow->addWidget(passcode_, 1);
    passcodeRow->addWidget(generate);

    auto* form = new QFormLayout;
    form->addRow(on_);
    form->addRow(QStringLiteral("&Listen on:"), address_);
    form->addRow(QStringLiteral("&TCP port:"), tcpPort_);
    form->addRow(QStringLiteral("&OSC port:"), oscPort_);
    form->addRow(QStringLiteral("&Passcode:"), passcodeRow);
    if (auto* label = qobject_cast<QLabel*>(form->labelForField(passcodeRow))) label->setBuddy(passcode_);
    problem_ = new QLabel(this);
    problem_->setObjectName(QStringLiteral("remoteProblem"));
    problem_->setWordWrap(true);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    ok_ = buttons->button(QDialogButtonBox::Ok);
    auto* note = new QLabel(QStringLiteral("Peers on this computer need no passcode. Peers beyond it send "
                                           "\"auth PASSCODE\" (TCP) or /auth PASSCODE (OSC) first."),
                            this);
    note->setWordWrap(true);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(note);
    layout->addWidget(problem_);
    layout->addWidget(buttons);

    QObject::connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    QObject::connect(generate, &QPushButton::clicked, this,
                     [this] { passcode_->setText(QString::fromStdString(remote::AccessGate::generate())); });
    QObject::connect(on_, &QCheckBox::toggled, this, [this] { check(); });
    QObject::connect(address_, &QComboBox::currentTextChanged, this, [this] { check(); });
    QObject::connect(passcode_, &QLineEdit::textChanged, this, [this] { check(); });
    check();
}

RemoteSettings RemoteWindow::settings() const {
    RemoteSettings out = base_;
    out.enabled = on_->isChecked();
    out.address = QHostAddress(address_->currentText().trimmed());
    out.tcpPort = static_cast<quint16>(tcpPort_->value());
    out.oscPort = static_cast<quint16>(oscPort_->value());
    out.passcode = passcode_->text().trimmed().toStdString();
    return out;
}

void RemoteWindow::check() {
    const QString problem = remoteSettingsProblem(settings());
    problem_->setText(problem);
    problem_->setVisible(!problem.isEmpty());
    ok_->setEnabled(problem.isEmpty());
}

}  // namespace station::ui
