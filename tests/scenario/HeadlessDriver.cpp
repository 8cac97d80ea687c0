#include "tests/scenario/HeadlessDriver.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <string>
#include <system_error>
#include <utility>

#include "core/Paths.h"
#include "tests/scenario/FormEvents.h"
#include "tests/scenario/Texts.h"

namespace quorvel::scenario {

namespace {

/// Where the password lies in the world that scenarios are written for.
constexpr const char* passwordFile = "C:\\Windows\\khymltp.wpt";

const CodePage& codePage() {
    return CodePage::windows1252();
}

/// A password file of 0 bytes for an empty text, else one record.
std::string passwordFileContent(std::string_view password) {
    constexpr std::size_t recordLength = 128;
    constexpr char textTag = 8;
    if (password.empty()) return {};
    std::string content{textTag, 0, static_cast<char>(password.size()), 0};
    content += password;
    content.resize(std::max(content.size(), recordLength), 0);
    return content;
}

FakePrinter::State fakeState(PrinterState state) {
    switch (state) {
        case PrinterState::Ready:
            return FakePrinter::State::Ready;
        case PrinterState::None:
            return FakePrinter::State::None;
        case PrinterState::Fails:
            return FakePrinter::State::Fails;
    }
    return FakePrinter::State::Ready;
}

bool hasDrive(std::string_view path) {
    return path.size() >= 2 && path[1] == ':';
}

}  // namespace

TemporaryFolder::TemporaryFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "qrvXXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) throw ScenarioError("cannot make a program folder");
    path_ = name;
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code error;
    std::filesystem::remove_all(path_, error);
}

HeadlessDriver::HeadlessDriver() {
    files_.copiesAreKept = false;
}

std::string HeadlessDriver::programFolderText() const {
    return pathText(folder_.path(), codePage());
}

std::filesystem::path HeadlessDriver::resolve(std::string_view path) const {
    std::string text = codePage().toUtf8(insideProgramFolder(path).value_or(path));
    // A path on a drive is a single name here, inside the program's folder like everything else.
    if (!hasDrive(text)) std::ranges::replace(text, '\\', '/');
    return folder_.path() / std::filesystem::path(text);
}

bool HeadlessDriver::set(const Setting& setting) {
    std::visit(ForEachKind{
                   [&](const SetScreen& screen) { shell_.screen = screen.size; },
                   [&](const StorePassword& stored) { storePassword(stored.password); },
                   [&](const PlaceFile&) {},
                   [&](const SetPrinter& printer) { printer_.state = fakeState(printer.state); },
                   [&](const SetDisk& disk) { files_.full = disk.full; },
                   [&](const OpenElsewhere& file) { openElsewhere(file); },
                   [&](const CloseElsewhere& file) { closeElsewhere(file); },
               },
               setting);
    return true;
}

void HeadlessDriver::storePassword(std::string_view password) const {
    std::ofstream(resolve(passwordFile), std::ios::binary) << passwordFileContent(password);
}

void HeadlessDriver::openElsewhere(const OpenElsewhere& opened) {
    const std::filesystem::path file = resolve(opened.path);
    if (!disk_.exists(file)) throw ScenarioError("there is no such file");
    (opened.sharing == FileSharing::Contents ? files_.held : files_.locked).insert(file);
}

void HeadlessDriver::closeElsewhere(const CloseElsewhere& closed) {
    const std::filesystem::path file = resolve(closed.path);
    if (files_.held.erase(file) + files_.locked.erase(file) == 0)
        throw ScenarioError("no program has the file open");
}

frmQRV& HeadlessDriver::program() {
    if (program_ == nullptr) throw ScenarioError("the program was not started");
    if (program_->hasEnded()) throw ScenarioError("the program has ended");
    if (!program_->isOpen()) throw ScenarioError("the window is not open");
    return *program_;
}

bool HeadlessDriver::act(const Action& action) {
    if (std::holds_alternative<Start>(action)) {
        start();
    } else {
        frmQRV& form = program();
        conversation_.begin([&form, event = eventOf(action, form)] { event(form); });
    }
    return true;
}

void HeadlessDriver::start() {
    if (program_ != nullptr && !program_->hasEnded())
        throw ScenarioError("the program is running already");
    files_.copies.clear();
    shell_.launches.clear();
    const Ports ports{conversation_, files_, printer_, canvas_, clock_, shell_};
    const Places places{.programFolder = folder_.path(),
                        .passwordFile = resolve(passwordFile),
                        .documents = user_.path() / "Documents",
                        .localData = user_.path(),
                        .temporary = std::filesystem::temp_directory_path()};
    program_ = std::make_unique<frmQRV>(ports, places, codePage());
    conversation_.begin([this] { program_->start(); });
}

std::optional<Dialog> HeadlessDriver::openDialog() {
    try {
        return conversation_.openDialog();
    } catch (const std::exception& error) {
        throw ScenarioError(std::string("the program broke off: ") + error.what());
    }
}

void HeadlessDriver::answer(const Reply& reply) {
    conversation_.answer(reply);
}

}  // namespace quorvel::scenario
