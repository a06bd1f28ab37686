#include "io/ngspice.h"

#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <sstream>

#include "core/number_text.h"

namespace kelvro {

namespace {

constexpr const char* kMissing =
    "ngspice is not installed; Debian's package has the same name: apt install ngspice";

/// "name = 1.2e+03 from= ...", the one form of all measurements.
void ReadMeasurement(const std::string& line, Measurements& found) {
    std::istringstream words(line);
    std::string name;
    std::string equals;
    std::string number;
    if (!(words >> name >> equals >> number) || equals != "=") return;
    if (!ParseNumber(number).noDigits) found[name] = ParseValue(number);
}

/// " 2  2e+07  1.26993  ...": number, frequency, amplitude.
void ReadHarmonic(const std::string& line, Measurements& found) {
    std::istringstream words(line);
    std::string number;
    std::string frequency;
    std::string amplitude;
    if (!(words >> number >> frequency >> amplitude)) return;
    if (number.find_first_not_of("0123456789") != std::string::npos) return;
    found["harmonic" + number] = ParseValue(amplitude);
}

/// The first line that names an error, else the last line of all.
std::string Complaint(const std::string& output) {
    std::istringstream lines(output);
    std::string last = "it printed nothing";
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("Error") || line.starts_with("Fatal")) return line;
        if (line.find_first_not_of(" \t\r*-") != std::string::npos) last = line;
    }
    return last;
}

/// All that the program printed, or why it did not come to its end.
Result<std::string> OutputOf(QProcess& process, const std::stop_token& stop, int seconds) {
    constexpr int milliseconds = 1000;
    constexpr int patience = 50;  // ms between looks at the stop token
    if (!process.waitForStarted(seconds * milliseconds)) {
        return Status::Failure("ngspice cannot be started: " + process.errorString().toStdString());
    }
    process.closeWriteChannel();
    QElapsedTimer time;
    time.start();
    while (!process.waitForFinished(patience) && process.state() != QProcess::NotRunning) {
        const bool late = time.elapsed() > seconds * milliseconds;
        if (!late && !stop.stop_requested()) continue;
        process.kill();
        process.waitForFinished();
        return Status::Failure(late ? "ngspice was still busy after " + std::to_string(seconds) +
                                          " s and was stopped"
                                    : std::string("ngspice was stopped"));
    }
    std::string output = process.readAll().toStdString();
    if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) {
        return Status::Failure("ngspice failed: " + Complaint(output));
    }
    return output;
}

}  // namespace

Measurements MeasurementsIn(const std::string& output) {
    Measurements found;
    bool fourier = false;
    std::istringstream lines(output);
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("Fourier analysis")) fourier = true;
        if (fourier) {
            ReadHarmonic(line, found);
        } else {
            ReadMeasurement(line, found);
        }
    }
    return found;
}

Result<Measurements> RunNgspice(const std::string& netlist, const std::stop_token& stop,
                                int seconds) {
    const QString program = QStandardPaths::findExecutable(QStringLiteral("ngspice"));
    if (program.isEmpty()) return Status::Failure(kMissing);
    const QTemporaryDir folder;
    QFile deck(folder.filePath(QStringLiteral("deck.cir")));
    const auto size = static_cast<qint64>(netlist.size());
    if (!folder.isValid() || !deck.open(QIODevice::WriteOnly) ||
        deck.write(netlist.data(), size) != size || !deck.flush()) {
        return Status::Failure("The netlist cannot be written: " +
                               deck.errorString().toStdString());
    }
    QProcess process;
    process.setWorkingDirectory(folder.path());
    process.setProcessChannelMode(QProcess::MergedChannels);
    // -n: the user's own start-up files change no result.
    process.start(program, {QStringLiteral("-n"), QStringLiteral("-b"), deck.fileName()});
    const auto output = OutputOf(process, stop, seconds);
    if (!output) return output.status();
    Measurements found = MeasurementsIn(*output);
    if (found.empty()) return Status::Failure("ngspice measured nothing: " + Complaint(*output));
    return found;
}

}  // namespace kelvro
