#include "platform/converter.h"

namespace tamarind::platform {
namespace {

void Convert(Processes& processes, UserInterface& ui, const ConverterFolders& folders, const std::string& workFolder,
             const std::string& commandLine) {
    ProcessStart start = ConverterStart(folders, commandLine);
    start.folder = workFolder;
    ShellWait(processes, ui, start, true);
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

std::string CommandLineToTexture(const std::string& xmlPath, const std::string& binaryPath) {
    return "serz.exe \"" + xmlPath + "\" /bin:\"" + binaryPath + "\"";
}

void ConvertToXml(Processes& processes, UserInterface& ui, const ConverterFolders& folders,
                  const std::string& binaryPath, const std::string& xmlPath) {
    Convert(processes, ui, folders, folders.program, CommandLineToXml(binaryPath, xmlPath));
}

void ConvertToBinary(Processes& processes, UserInterface& ui, const ConverterFolders& folders,
                     const std::string& xmlPath, const std::string& binaryPath) {
    Convert(processes, ui, folders, folders.program, CommandLineToBinary(xmlPath, binaryPath));
}

void ConvertToTexture(Processes& processes, UserInterface& ui, const ConverterFolders& folders,
                      const std::string& workFolder, const std::string& xmlPath, const std::string& binaryPath) {
    Convert(processes, ui, folders, workFolder, CommandLineToTexture(xmlPath, binaryPath));
}

} // namespace tamarind::platform
