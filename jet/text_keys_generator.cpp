// Turns text_keys.tsv into the initializer of the table in text_key.cpp. Classes: W weight; A weight and
// accent mark; M combining mark; L light character, a tail code only; K kana, weight, perhaps a mark, and a
// flag.
#include <array>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

namespace {

std::vector<int> HexBytes(const std::string& hex) {
  std::vector<int> bytes;
  for (size_t i = 0; i + 1 < hex.size(); i += 2) bytes.push_back(std::stoi(hex.substr(i, 2), nullptr, 16));
  return bytes;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  std::ifstream in(argv[1]);
  std::ofstream out(argv[2]);
  std::vector<std::array<int, 8>> rows(65536);
  std::string line;
  while (std::getline(in, line)) {
    if (line.empty() || line[0] == '#') continue;
    std::vector<std::string> cells;
    std::stringstream stream(line);
    for (std::string cell; std::getline(stream, cell, '\t');) cells.push_back(cell);
    cells.resize(5);
    const std::vector<int> weight = HexBytes(cells[2]), mark = HexBytes(cells[3]), tail = HexBytes(cells[4]);
    if (weight.size() > 4 || mark.size() > 2 || tail.size() > 1) {
      std::cerr << "too long: " << line << '\n';
      return 1;
    }
    auto& row = rows[std::stoul(cells[0], nullptr, 16)];
    for (size_t i = 0; i < weight.size(); ++i) row[i] = weight[i];
    for (size_t i = 0; i < mark.size(); ++i) row[4 + i] = mark[i];
    row[6] = static_cast<int>(weight.size() | mark.size() << 4);
    row[7] = tail.empty() ? 0 : tail[0];
  }
  for (const auto& row : rows) {
    out << "{{" << row[0] << ',' << row[1] << ',' << row[2] << ',' << row[3] << "},{" << row[4] << ','
        << row[5] << "}," << row[6] << ',' << row[7] << "},\n";
  }
  return out ? 0 : 1;
}
