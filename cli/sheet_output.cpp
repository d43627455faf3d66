#include "cli/sheet_output.h"

#include "base/columns.h"
#include "setup/event_name.h"

namespace tarvex::cli {
namespace {

using running::RoundSheet;
using running::SheetHeat;
using running::SheetLine;

std::string Blank(int number) {
  return number == 0 ? "" : std::to_string(number);
}

Json LineJson(const SheetLine& line, bool is_relay) {
  return {{"lane", line.lane},
          {"lane_text", line.lane_text},
          {"comp_no", line.comp_no},
          {is_relay ? "relay_no" : "ath_no", line.id},
          {"name", line.name},
          {"team_abbr", line.team_abbr},
          {"seed_text", line.seed_text},
          {"mark", Number(line.mark)},
          {"mark_text", line.mark_text},
          {"stat", line.stat == ' ' ? "" : std::string(1, line.stat)},
          {"place", line.place},
          {"heatplace", line.heatplace},
          {"jdplace", line.jdplace},
          {"jdheatplace", line.jdheatplace},
          {"points", Number(line.points)}};
}

std::string Title(const RoundSheet& sheet) {
  return "Event " + setup::EventLabel(sheet.event) + "  " + sheet.name + "  " +
         std::string(setup::RoundName(sheet.round)) + "\n";
}

std::string StartListText(const RoundSheet& sheet) {
  std::string text = Title(sheet);
  const std::string unit = sheet.is_field ? "Flight " : "Heat ";
  for (const SheetHeat& heat : sheet.heats) {
    text += "\n" + unit + std::to_string(heat.heat) + " of " + std::to_string(sheet.heats.size()) + "\n";
    Columns table({{sheet.is_field ? "Pos" : "Lane", Align::Right},
                   {"Comp#", Align::Right},
                   {sheet.is_relay ? "Relay" : "Name"},
                   {"Team"},
                   {sheet.is_field ? "Mark" : "Time", Align::Right}});
    for (const SheetLine& line : heat.lanes) {
      table.AddRow({line.lane_text, Blank(line.comp_no), line.name, line.team_abbr,
                    line.scratched ? "SCR" : line.seed_text});
    }
    text += table.ToText("  ");
  }
  return text;
}

std::string ResultsText(const RoundSheet& sheet) {
  std::string text = Title(sheet);
  Columns table({{"Pl", Align::Right},
                 {"Comp#", Align::Right},
                 {sheet.is_relay ? "Relay" : "Name"},
                 {"Team"},
                 {"Seed", Align::Right},
                 {sheet.is_field ? "Mark" : "Time", Align::Right},
                 {"Wind", Align::Right},
                 {sheet.is_field ? "Fl" : "Heat", Align::Right},
                 {"HeatPl", Align::Right},
                 {"JD", Align::Right},
                 {"Points", Align::Right}});
  for (const SheetLine& line : sheet.ByPlace()) {
    table.AddRow({Blank(line.effective_place()), Blank(line.comp_no), line.name, line.team_abbr,
                  line.seed_text, line.mark_text, line.wind, Blank(line.heat),
                  Blank(line.jdheatplace > 0 ? line.jdheatplace : line.heatplace), Blank(line.jdplace),
                  line.points_text});
  }
  return text + "\n" + table.ToText("  ");
}

}  // namespace

Json SheetJson(const RoundSheet& sheet) {
  Json heats = Json::array();
  for (const SheetHeat& heat : sheet.heats) {
    Json lanes = Json::array();
    for (const SheetLine& line : heat.lanes) lanes.push_back(LineJson(line, sheet.is_relay));
    heats.push_back({{"heat", heat.heat}, {"wind", heat.wind}, {"lanes", std::move(lanes)}});
  }
  return {{"event_no", sheet.event.event_no},
          {"event_ltr", sheet.event.event_ltr},
          {"name", sheet.name},
          {"round", std::string(1, Letter(sheet.round))},
          {"heats", std::move(heats)}};
}

std::string SheetText(const RoundSheet& sheet, SheetKind kind) {
  return kind == SheetKind::StartList ? StartListText(sheet) : ResultsText(sheet);
}

int PrintSheet(Context& context, const database::Meet& meet, const std::string& event,
               const std::string& round, SheetKind kind) {
  const auto events = EventsNamed(meet, {event}, false);
  if (!events.ok()) return context.Print({}, "", context.Fail(events.status()));
  if (const auto* notice = std::get_if<Notice>(&*events))
    return context.Print({}, "", context.Refuse(*notice));
  const setup::StoredEvent& stored = std::get<std::vector<setup::StoredEvent>>(*events).front();
  const auto wanted = RoundNamed(stored.row, round);
  if (const auto* notice = std::get_if<Notice>(&wanted))
    return context.Print({}, "", context.Refuse(*notice));
  const auto roster = setup::LoadRoster(meet);
  if (!roster.ok()) return context.Print({}, "", context.Fail(roster.status()));
  const auto sheet = running::LoadSheet(meet, stored, std::get<setup::Round>(wanted), *roster);
  if (!sheet.ok()) return context.Print({}, "", context.Fail(sheet.status()));
  return context.Print(SheetJson(*sheet), SheetText(*sheet, kind));
}

}  // namespace tarvex::cli
