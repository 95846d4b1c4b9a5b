#include "ui/start/remembered_port.hpp"

#include <QSettings>

namespace station::ui {

std::optional<PortChoice> rememberedPort() {
    QSettings s(QStringLiteral("corvane-station"), QStringLiteral("corvane-station"));
    if (!s.contains(QStringLiteral("port/device"))) return std::nullopt;
    return PortChoice{s.value(QStringLiteral("port/device")).toString().toStdString(),
                      s.value(QStringLiteral("port/simulated")).toBool()};
}

void rememberPort(const PortChoice& choice) {
    QSettings s(QStringLiteral("corvane-station"), QStringLiteral("corvane-station"));
    s.setValue(QStringLiteral("port/device"), QString::fromStdString(choice.device));
    s.setValue(QStringLiteral("port/simulated"), choice.simulated);
}

}  // namespace station::ui
