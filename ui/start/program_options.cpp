#include "ui/start/program_options.hpp"

#include <QCommandLineParser>
#include <QStringList>

#include <algorithm>
#include <cctype>
#include <string_view>
#include <system_error>
#include <utility>

#include "camtype/definition_folder.hpp"
#include "common/option_errors.hpp"
#include "common/version.hpp"

namespace station::ui {

namespace {

struct RemoteNames {
    const QCommandLineOption &remote, &address, &tcpPort, &oscPort, &folder, &idle, &passcodeFile, &web;
};

// "[ADDRESS:]PORT"; an IPv6 address in brackets ("[::1]:8080").
std::optional<RemoteOptions::Web> webOption(const std::string& text) {
    RemoteOptions::Web web;
    std::string port = text;
    if (const auto colon = text.rfind(':'); colon != std::string::npos) {
        std::string address = text.substr(0, colon);
        if (address.size() >= 2 && address.front() == '[' && address.back() == ']') address = address.substr(1, address.size() - 2);
        if (address.empty()) return std::nullopt;
        web.address = address;
        port = text.substr(colon + 1);
    }
    bool number = false;
    web.port = QString::fromStdString(port).toInt(&number);
    if (!number || web.port < 1 || web.port > 65535) return std::nullopt;
    return web;
}

void readRemoteOptions(const QCommandLineParser& parser, const RemoteNames& names, ProgramOptions& o) {
    RemoteOptions& r = o.remote;
    r.enabled = parser.isSet(names.remote) || parser.isSet(names.address) || parser.isSet(names.tcpPort) ||
                parser.isSet(names.oscPort);
    auto fail = [&o](std::string text) {
        if (o.error.empty()) o.error = std::move(text);
    };
    if (parser.isSet(names.address)) {
        r.address = parser.value(names.address).toStdString();
        if (r.address->empty()) fail(options::needsValue("--remote-address"));
    }
    for (const auto& [option, port] : {std::pair{&names.tcpPort, &r.tcpPort}, std::pair{&names.oscPort, &r.oscPort}}) {
        if (!parser.isSet(*option)) continue;
        const QString text = parser.value(*option);
        bool number = false;
        const int n = text.toInt(&number);
        if (!number || n < 1 || n > 65535)
            fail(options::badValue("--" + option->names().constFirst().toStdString(), "not a port number: " + text.toStdString()));
        else *port = n;
    }
    if (parser.isSet(names.idle)) {
        bool number = false;
        const int seconds = parser.value(names.idle).toInt(&number);
        if (!number || seconds < 1) fail("--remote-idle: not a number of seconds: " + parser.value(names.idle).toStdString());
        else r.idleSeconds = seconds;
    }
    if (parser.isSet(names.web)) {
        const std::string text = parser.value(names.web).toStdString();
        r.web = webOption(text);
        if (!r.web) fail("--web: not [ADDRESS:]PORT: " + text);
    }
    if (parser.isSet(names.passcodeFile)) {
        r.passcodeFile = std::filesystem::path(parser.value(names.passcodeFile).toLocal8Bit().toStdString());
        if (r.passcodeFile->empty()) fail(options::needsValue("--remote-passcode-file", "a file"));
    }
    if (parser.isSet(names.folder)) {
        r.folder = std::filesystem::path(parser.value(names.folder).toLocal8Bit().toStdString());
        if (r.folder->empty()) fail(options::needsValue("--remote-folder", "a folder"));
    }
}

struct Parsed {
    ProgramOptions options;
    bool clean = true;  // every argument was an option of ours
};

Parsed parse(const std::vector<std::string>& args) {
    QCommandLineParser parser;
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    const QCommandLineOption help(QStringList{QStringLiteral("h"), QStringLiteral("help")});
    const QCommandLineOption version(QStringLiteral("version"));
    const QCommandLineOption port(QStringLiteral("port"), QString(), QStringLiteral("DEVICE"));
    const QCommandLineOption definitions(QStringLiteral("definitions"), QString(), QStringLiteral("FOLDER"));
    const QCommandLineOption simulate(QStringLiteral("simulate"));
    const QCommandLineOption logFile(QStringLiteral("log-file"), QString(), QStringLiteral("FILE"));
    const QCommandLineOption remote(QStringLiteral("remote"));
    const QCommandLineOption remoteAddress(QStringLiteral("remote-address"), QString(), QStringLiteral("ADDR"));
    const QCommandLineOption remotePort(QStringLiteral("remote-port"), QString(), QStringLiteral("N"));
    const QCommandLineOption oscPort(QStringLiteral("osc-port"), QString(), QStringLiteral("N"));
    const QCommandLineOption remoteFolder(QStringLiteral("remote-folder"), QString(), QStringLiteral("DIR"));
    const QCommandLineOption remoteIdle(QStringLiteral("remote-idle"), QString(), QStringLiteral("SECONDS"));
    const QCommandLineOption passcodeFile(QStringLiteral("remote-passcode-file"), QString(), QStringLiteral("FILE"));
    const QCommandLineOption web(QStringLiteral("web"), QString(), QStringLiteral("[ADDRESS:]PORT"));
    const QCommandLineOption exactChecksum(QStringLiteral("exact-checksum"));
    const QCommandLineOption noRestore(QStringLiteral("no-restore"));
    parser.addOptions({help, version, port, definitions, simulate, logFile, remote, remoteAddress, remotePort, oscPort,
                       remoteFolder, remoteIdle, passcodeFile, web, exactChecksum, noRestore});

    QStringList argv{QStringLiteral("corvane-station")};
    for (const std::string& arg : args) argv << QString::fromLocal8Bit(arg.data(), static_cast<qsizetype>(arg.size()));
    Parsed out;
    ProgramOptions& o = out.options;
    out.clean = parser.parse(argv);
    o.help = parser.isSet(help);
    o.version = parser.isSet(version);
    if (!out.clean) {
        o.error = parser.errorText().toStdString();
        return out;
    }
    if (!parser.positionalArguments().isEmpty()) {
        out.clean = false;
        o.error = options::unknownArgument(parser.positionalArguments().constFirst().toStdString());
        return out;
    }
    if (parser.isSet(port)) {
        o.port = parser.value(port).toLocal8Bit().toStdString();
        if (o.port->empty()) o.error = options::needsValue("--port", "a device");
    }
    o.simulate = parser.isSet(simulate);
    o.noRestore = parser.isSet(noRestore);
    o.exactChecksum = parser.isSet(exactChecksum);
    if (parser.isSet(logFile)) {
        const std::string file = parser.value(logFile).toLocal8Bit().toStdString();
        o.logFile = std::filesystem::path(file);
        if (file.empty()) o.error = options::needsValue("--log-file", "a file");
    }
    if (parser.isSet(definitions)) {
        const std::string folder = parser.value(definitions).toLocal8Bit().toStdString();
        o.definitions = std::filesystem::path(folder);
        if (folder.empty()) o.error = options::needsValue("--definitions", "a folder");
    }
    readRemoteOptions(parser, {remote, remoteAddress, remotePort, oscPort, remoteFolder, remoteIdle, passcodeFile, web}, o);
    return out;
}

}  // namespace

ProgramOptions parseProgramOptions(const std::vector<std::string>& args) { return parse(args).options; }

std::vector<std::string> withoutQtOptions(const std::vector<std::string>& args) {
    static const std::vector<std::string> withValue = {
        "platform", "platformpluginpath", "platformtheme", "plugin", "qwindowgeometry", "qwindowicon",
        "qwindowtitle", "display", "geometry", "style", "stylesheet", "session", "name", "title", "visual"};
    static const std::vector<std::string> flags = {"reverse", "widgetcount", "nograb", "dograb", "sync"};
    auto is = [](const std::vector<std::string>& names, std::string_view arg) {
        if (arg.size() < 2 || arg[0] != '-') return false;
        arg.remove_prefix(arg[1] == '-' ? 2 : 1);
        return std::find(names.begin(), names.end(), arg) != names.end();
    };
    std::vector<std::string> ours;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& arg = args[i];
        if (is(withValue, arg)) ++i;  // and its value
        else if (is(flags, arg)) continue;
        else if (const auto eq = arg.find('='); !(eq != std::string::npos && is(withValue, arg.substr(0, eq))))
            ours.push_back(arg);
    }
    return ours;
}

std::string programHelp() {
    return "Usage: corvane-station [--port DEVICE | --simulate] [--definitions FOLDER] [--log-file FILE]\n"
           "                       [--no-restore] [--remote] [--remote-address ADDR] [--remote-port N]\n"
           "                       [--osc-port N] [--remote-folder DIR] [--remote-idle SECONDS]\n"
           "                       [--remote-passcode-file FILE] [--web [ADDRESS:]PORT]\n"
           "                       [--exact-checksum] [--version]\n"
           "\n"
           "The camera control station: one operator sets up and controls up to eight\n"
           "studio cameras on one RS-232 line.\n"
           "\n"
           "  --port DEVICE        the serial device of port 1 for this run, e.g.\n"
           "                       /dev/ttyUSB0 or the terminal path that camera-sim\n"
           "                       prints. Without it (and without $CORVANE_PORT) the\n"
           "                       station uses the port chosen in Setup > Port last\n"
           "                       time, at first its built-in simulated camera line.\n"
           "  --simulate           the built-in simulated camera line with the sample\n"
           "                       studio's cameras, for this run\n"
           "  --log-file FILE      append every entry of the line log to FILE\n"
           "  --definitions FOLDER the folder of the camera-type definitions (*.fcl);\n"
           "                       otherwise the remembered folder (\"folder\" under\n"
           "                       [definitions] in ~/.config/corvane-station/\n"
           "                       corvane-station.conf), else the working folder, else\n"
           "                       the samples shipped with the program.\n"
           "  --no-restore         start clean: without reopening the setup file last\n"
           "                       opened or saved, and without turning remote control\n"
           "                       back on as it was at the last run\n"
           "  --exact-checksum     for this run, accept every camera reply whose checksum\n"
           "                       matches (Setup > Read every checksum exactly)\n"
           "\n"
           "Control from outside (off unless one of these is given, or Setup > Remote control):\n"
           "  --remote             serve remote commands on 127.0.0.1: TCP lines on port 5250,\n"
           "                       OSC on UDP port 5251, for this run only; without these\n"
           "                       options, as Setup > Remote control was left. The commands:\n"
           "                       " STATION_DOC_DIR "/remote-control.md\n"
           "  --remote-address ADDR  listen on this address instead (e.g. 0.0.0.0: the network)\n"
           "  --remote-port N      the TCP port     --osc-port N   the OSC port\n"
           "  --remote-folder DIR  let remote clients open and save setup files in DIR only\n"
           "  --remote-idle SECONDS  close a TCP client that sends nothing this long (600)\n"
           "  --remote-passcode-file FILE  the passcode peers beyond this computer give, from\n"
           "                       FILE's first line (needed to listen beyond 127.0.0.1)\n"
           "  --web [ADDRESS:]PORT serve the browser panel, for this run: open\n"
           "                       http://127.0.0.1:PORT/ in a browser (beyond loopback only\n"
           "                       with the passcode; without the option, as Setup > Browser\n"
           "                       panel was left)\n"
           "\n"
           "  --version            show the program's version\n"
           "  --help               show this text\n";
}

std::string programVersion() { return versionLine("corvane-station"); }

std::optional<std::string> portDevice(const ProgramOptions& options, const char* corvanePortVariable) {
    if (options.port) return options.port;
    if (corvanePortVariable != nullptr && *corvanePortVariable != '\0') return std::string(corvanePortVariable);
    return std::nullopt;
}

PortChoice startPort(const ProgramOptions& options, const char* corvanePortVariable,
                     const std::optional<PortChoice>& remembered) {
    if (options.simulate) return PortChoice{{}, true};
    if (auto device = portDevice(options, corvanePortVariable)) return PortChoice{*device, false};
    if (remembered && (remembered->simulated || !remembered->device.empty())) return *remembered;
    return PortChoice{{}, true};
}

std::optional<std::filesystem::path> samplesFolder(const std::filesystem::path& programFolder) {
    const std::filesystem::path candidates[] = {
        programFolder / ".." / "share" / "corvane-station",
        STATION_SOURCE_SAMPLES,
    };
    for (const auto& folder : candidates) {
        std::error_code ec;
        if (std::filesystem::is_regular_file(folder / "studio.csd", ec)) return folder.lexically_normal();
    }
    return std::nullopt;
}

bool hasDefinitionFiles(const std::filesystem::path& folder) {
    std::error_code ec;
    std::filesystem::directory_iterator it(folder, ec);
    for (const std::filesystem::directory_iterator end; !ec && it != end; it.increment(ec)) {
        std::string ext = it->path().extension().string();
        std::transform(ext.begin(), ext.end(), ext.begin(), [](unsigned char c) { return std::tolower(c); });
        std::error_code typeEc;
        if (ext == ".fcl" && it->is_regular_file(typeEc)) return true;
    }
    return false;
}

std::filesystem::path definitionFolder(const ProgramOptions& options,
                                       const std::optional<std::filesystem::path>& remembered,
                                       const std::filesystem::path& workingFolder,
                                       const std::optional<std::filesystem::path>& samples) {
    const std::filesystem::path chosen = chooseDefinitionFolder(options.definitions, remembered, workingFolder);
    if (!options.definitions && samples && !hasDefinitionFiles(chosen)) return *samples;
    return chosen;
}

}  // namespace station::ui
