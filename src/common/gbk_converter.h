#pragma once

#include <span>

namespace triaxlab {

/// What the system knows of code page 936. UserError where it knows nothing of it.
class GbkConverter {
 public:
  GbkConverter();
  GbkConverter(const GbkConverter&) = delete;
  GbkConverter& operator=(const GbkConverter&) = delete;
  ~GbkConverter();

  static constexpr unsigned kFirstLead = 0x81, kFirstTrail = 0x40;
  static constexpr std::size_t kLeads = 0xFF - kFirstLead, kTrails = 0xFF - kFirstTrail;
  static constexpr char16_t kNoCharacter = 0;
  using Row = std::span<char16_t, kTrails>;

  /// The characters that begin with the byte kFirstLead + `lead`, in the order of their second bytes.
  void fillRow(unsigned lead, Row row) const;

 private:
  void* m_system = nullptr;
};

}  // namespace triaxlab
