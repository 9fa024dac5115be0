/// Progress of a long run on the terminal.
#pragma once

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <string>

namespace unitlib::app {

/// Draws one line on a stream, at most ten times a second and only after the first half second, and wipes it
/// at the end. Draws nothing when it is not wanted.
class TProgressBar {
public:
  /// Total      bytes to come, 0 where not known: only the rows are counted then
  /// Counting   how the rows are told, {0} being their number
  TProgressBar(std::FILE* Stream, std::uint64_t Total, bool Wanted, std::string Counting);
  ~TProgressBar() { Clear(); }
  TProgressBar(const TProgressBar&) = delete;
  TProgressBar& operator=(const TProgressBar&) = delete;

  void Update(std::uint64_t Done, std::uint64_t Rows);
  /// Wipes the line, for a message to take its place.
  void Clear();

private:
  using TClock = std::chrono::steady_clock;

  std::FILE* FStream;
  std::uint64_t FTotal;
  bool FWanted;
  std::string FCounting;
  TClock::time_point FNext;
  std::size_t FDrawn = 0; // columns on the screen
};

/// The line itself: "[##########          ]  50 %  1234567 rows".
std::string ProgressLine(std::uint64_t Done, std::uint64_t Total, std::uint64_t Rows,
                         std::string_view Counting = "{0} rows");

} // namespace unitlib::app
