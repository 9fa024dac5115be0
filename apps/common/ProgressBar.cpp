#include "apps/common/ProgressBar.h"

#include <algorithm>

namespace unitlib::app {
namespace {

constexpr auto FirstDelay = std::chrono::milliseconds(500);
constexpr auto Pause = std::chrono::milliseconds(100);
constexpr std::size_t BarWidth = 30;

} // namespace

std::string ProgressLine(std::uint64_t Done, std::uint64_t Total, std::uint64_t Rows,
                         std::string_view Counting) {
  std::string Result;
  if (Total > 0) {
    const double Share = std::min(1.0, static_cast<double>(Done) / static_cast<double>(Total));
    const auto Filled = static_cast<std::size_t>(Share * BarWidth);
    const std::string Percent = std::to_string(static_cast<int>(Share * 100));
    Result.append("[").append(Filled, '#').append(BarWidth - Filled, ' ').append("] ");
    Result.append(3 - std::min<std::size_t>(3, Percent.size()), ' ').append(Percent).append(" %  ");
  }
  const std::size_t Place = std::min(Counting.find("{0}"), Counting.size());
  Result.append(Counting.substr(0, Place)).append(std::to_string(Rows));
  return Result.append(Counting.substr(std::min(Place + 3, Counting.size())));
}

TProgressBar::TProgressBar(std::FILE* Stream, std::uint64_t Total, bool Wanted, std::string Counting)
    : FStream(Stream), FTotal(Total), FWanted(Wanted), FCounting(std::move(Counting)),
      FNext(TClock::now() + FirstDelay) {}

void TProgressBar::Update(std::uint64_t Done, std::uint64_t Rows) {
  if (!FWanted || TClock::now() < FNext) return;
  const std::string Line = ProgressLine(Done, FTotal, Rows, FCounting);
  std::fprintf(FStream, "\r%s", Line.c_str());
  std::fflush(FStream);
  FDrawn = std::max(FDrawn, Line.size());
  FNext = TClock::now() + Pause;
}

void TProgressBar::Clear() {
  if (FDrawn == 0) return;
  std::fprintf(FStream, "\r%s\r", std::string(FDrawn, ' ').c_str());
  std::fflush(FStream);
  FDrawn = 0;
}

} // namespace unitlib::app
