#include "platform/converter.h"

namespace tamarind::platform {
namespace {

void Convert(Processes& processes, UserInterface& ui, const ConverterFolders& folders, const std::string& commandLine) {
    ShellWait(processes, ui, ConverterStart(folders, commandLine), true);
}

} // namespace

ProcessStart ConverterStart(const ConverterFolders& folders, const std::string& commandLine) {
    ProcessStart start;
    start.commandLine = commandLine;
    start.folder = folders.program;
    start.searchFolders.push_back(folders.program);
    if (!folders.game.empty()) {
        start.searchFolders.push_back(folders.game);
    }
    start.style = WindowStyle::Hidden;
    return start;
}

std::string CommandLineToXml(const std::string& binaryPath, const std::string& xmlPath) {
    return "serz.exe \"" + binaryPath + "\" xml:\"" + xmlPath + "\"";
}

std::string CommandLineToBinary(const std::string& xmlPath, const std::string& binaryPath) {
    return "serz.exe \"" + xmlPath + "\" bin:\"" + binaryPath + "\"";
}

void ConvertToXml(Processes& processes, UserInterface& ui, const ConverterFolders& folders,
                  const std::string& binaryPath, const std::string& xmlPath) {
    Convert(processes, ui, folders, CommandLineToXml(binaryPath, xmlPath));
}

void ConvertToBinary(Processes& processes, UserInterface& ui, const ConverterFolders& folders,
                     const std::string& xmlPath, const std::string& binaryPath) {
    Convert(processes, ui, folders, CommandLineToBinary(xmlPath, binaryPath));
}

} // namespace tamarind::platform
