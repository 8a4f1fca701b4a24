#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The trains of a scenario, as its own file lists them, and who drives which. Functions of text alone; searches mind
/// letter case.
namespace tamarind::authoring {

/// Consists beyond these are not listed, nor vehicles of a consist beyond as many.
inline constexpr std::size_t kMostConsists = 100;

struct Consist {
    std::string name = {};                  ///< of its service, else "Loose Consist"; empty where all languages are
    std::vector<std::string> vehicles = {}; ///< empty names included
    bool hasDriver = false;                 ///< somebody can be made its driver
    bool isPlayerDriven = false;
};

/// The consists of a scenario's text, in order. A consist reaches from the end of the one before to its own end.
/// Throws InvalidProcedureCall for one whose name or vehicles are not whole.
[[nodiscard]] std::vector<Consist> ScanConsists(std::string_view scenarioText);

/// What the list of a consist's vehicles shows: their names but the empty ones; one line where there are none.
[[nodiscard]] std::vector<std::string> VehicleLines(const Consist& consist);

/// The text with every "PlayerDriver" and every "PlayerControlled" set to "0", and then the first "PlayerDriver" from
/// the start of the consist with that index on set to "1"; with index -1 the first one of all. "PlayerControlled" stays
/// "0" everywhere: the game sets it when the player takes over.
/// Throws InvalidProcedureCall when there is no such consist, no driver from there on, or an element does not end.
[[nodiscard]] std::string SetDriver(std::string_view scenarioText, int consist);

/// The consist whose driver SetDriver makes the player's: the one chosen or, where that has none, the next one that
/// does. Nothing when there is none among those listed.
[[nodiscard]] std::optional<std::size_t> DrivenConsist(const std::vector<Consist>& consists, int chosen);

} // namespace tamarind::authoring
