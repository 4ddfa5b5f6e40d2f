// The fields of the preference records as fields.txt lists them.
#pragma once

#include <algorithm>
#include <fstream>
#include <ostream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "legacyhost.h"

struct ListedField {
  int offset = 0;
  Address legacy;
  int word = 0;
  std::string kind;

  int Size() const { return kind == "long" ? 4 : 2; }
  int Words() const { return kind == "long" ? 2 : 1; }
};

struct ListedRecord {
  std::string name;
  std::string tag;
  int size = 0;  // as a load reports it
  std::vector<ListedField> fields;

  // The bytes up to the end of the last field.
  std::size_t Extent() const {
    int end = 0;
    for (const ListedField& field : fields) end = std::max(end, field.offset + field.Size());
    return static_cast<std::size_t>(end);
  }

  // Each legacy record once, in the order in which it first appears.
  std::vector<Address> LegacyRecords() const {
    std::vector<Address> addresses;
    for (const ListedField& field : fields) {
      if (std::find(addresses.begin(), addresses.end(), field.legacy) == addresses.end())
        addresses.push_back(field.legacy);
    }
    return addresses;
  }
};

inline void PrintTo(const ListedRecord& record, std::ostream* out) { *out << record.name; }

inline std::vector<ListedRecord> ListedRecords() {
  std::vector<ListedRecord> records;
  std::ifstream file(BRV_SOURCE_DIR "/tests/BrvEDK/records/fields.txt");
  if (!file) throw std::runtime_error("no fields.txt");
  for (std::string line; std::getline(file, line);) {
    std::istringstream words(line);
    if (line.empty() || line[0] == '#') continue;
    if (line.starts_with("record ")) {
      ListedRecord record;
      std::string keyword;
      words >> keyword >> record.name >> record.tag >> record.size;
      records.push_back(record);
      continue;
    }
    ListedField field;
    std::string tag;
    int number = 0;
    int index = 0;
    words >> field.offset >> tag >> number >> index >> field.word >> field.kind;
    field.legacy = {Tag(tag), number, index};
    records.back().fields.push_back(field);
  }
  return records;
}
