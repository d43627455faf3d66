#include "jet/properties.h"

#include "jet/bytes.h"
#include "jet/text_codec.h"

namespace tarvex::jet {
namespace {

constexpr uint16_t kNames = 0x80;
constexpr uint16_t kColumn = 1;
constexpr uint8_t kDdl = 1;

template <class T>
void Append(Bytes& out, T value) {
  out.resize(out.size() + sizeof value);
  Store<T>(out.data() + out.size() - sizeof value, value);
}

void AppendName(Bytes& out, const std::string& name) {
  Bytes text;
  AppendText(name, text);
  Append<uint16_t>(out, static_cast<uint16_t>(text.size()));
  out.insert(out.end(), text.begin(), text.end());
}

void AppendBlock(Bytes& out, uint16_t kind, const Bytes& body) {
  Append<uint32_t>(out, static_cast<uint32_t>(6 + body.size()));
  Append<uint16_t>(out, kind);
  out.insert(out.end(), body.begin(), body.end());
}

}  // namespace

Bytes AllowZeroLengthProperties(std::span<const std::string> columns) {
  Bytes out = {'M', 'R', '2', 0};
  Bytes names;
  AppendName(names, "AllowZeroLength");
  AppendBlock(out, kNames, names);
  for (const std::string& column : columns) {
    Bytes name;
    AppendName(name, column);
    Bytes body;
    Append<uint32_t>(body, static_cast<uint32_t>(4 + name.size()));
    body.insert(body.end(), name.begin(), name.end());
    Append<uint16_t>(body, 8 + 1);
    body.push_back(kDdl);
    body.push_back(static_cast<uint8_t>(ColumnType::Boolean));
    Append<uint16_t>(body, 0);
    Append<uint16_t>(body, 1);
    body.push_back(1);
    AppendBlock(out, kColumn, body);
  }
  return out;
}

}  // namespace tarvex::jet
