#pragma once

#include "platform/processes.h"

#include <string>

/// The game's converter, serz.exe: looked for in the program's folder, then the game folder, then the search path.
namespace tamarind::platform {

struct ConverterFolders {
    std::string program; ///< also the converter's current folder
    std::string game;    ///< may be empty
};

/// `serz.exe "binary" xml:"xml"`
[[nodiscard]] std::string CommandLineToXml(const std::string& binaryPath, const std::string& xmlPath);
/// `serz.exe "xml" bin:"binary"`
[[nodiscard]] std::string CommandLineToBinary(const std::string& xmlPath, const std::string& binaryPath);

/// `serz.exe "xml" /bin:"binary"`: textures are converted with the option's other form.
[[nodiscard]] std::string CommandLineToTexture(const std::string& xmlPath, const std::string& binaryPath);
/// How the converter is started with such a command line.
[[nodiscard]] ProcessStart ConverterStart(const ConverterFolders& folders, const std::string& commandLine);

/// Run the converter, hidden, and wait for it. Whether it worked shows only in the output file.
void ConvertToXml(Processes& processes, UserInterface& ui, const ConverterFolders& folders,
                  const std::string& binaryPath, const std::string& xmlPath);
void ConvertToBinary(Processes& processes, UserInterface& ui, const ConverterFolders& folders,
                     const std::string& xmlPath, const std::string& binaryPath);
/// `workFolder` is the converter's current folder.
void ConvertToTexture(Processes& processes, UserInterface& ui, const ConverterFolders& folders,
                      const std::string& workFolder, const std::string& xmlPath, const std::string& binaryPath);

} // namespace tamarind::platform
