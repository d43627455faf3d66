#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>

#include "jet/database.h"

namespace tarvex::database {

// A new file gets most of its tables, fields and indexes when it is created and the rest when it is opened
// for the first time, as every older file does that lacks them.
enum class Made { AtCreation, AtFirstOpening };

struct FieldType {
  jet::ColumnType type;
  int size = 0;  // Text: characters
  bool is_counter = false;
};

struct SchemaField {
  std::string_view name;
  FieldType type;
  Made made = Made::AtCreation;
};

inline constexpr size_t kMostIndexFields = 7;

struct SchemaIndex {
  std::string_view name;
  std::array<std::string_view, kMostIndexFields> fields;  // ascending; empty beyond the last one
  bool is_primary = false;                                // and then unique; all others are not
  Made made = Made::AtCreation;
};

struct SchemaTable {
  std::string_view name;
  std::span<const SchemaField> fields;
  std::span<const SchemaIndex> indexes;
  Made made = Made::AtCreation;
};

// The current layout of a meet database: its tables in the order in which they are created, their fields and
// indexes likewise.
std::span<const SchemaTable> Schema();

// Upper-case names of all tables in the order in which an opening looks for them.
std::span<const std::string_view> TablesToCheck();

// By name in any case; null when the layout has no such table.
const SchemaTable* FindSchemaTable(std::string_view name);

// A file is a meet database when it has this table and the table has this field. Any case.
inline constexpr std::string_view kMarkTable = "MEET";
inline constexpr std::string_view kMarkField = "WIN_TFTVX";

// The table as the engine is asked to make it. Fields and indexes that are made at the first opening are left
// out while `made` is AtCreation.
jet::TableSpec SpecOf(const SchemaTable& table, Made made);
jet::IndexSpec SpecOf(const SchemaIndex& index);

}  // namespace tarvex::database
