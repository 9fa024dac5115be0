/// Random inputs, the same in every run: fixed seed, 100,000 of each kind. (A small set is learned by the
/// branch predictor and flatters everybody.)
#pragma once

#include <string>
#include <vector>

namespace unitlib::bench {

constexpr std::size_t InputCount = 100'000;

struct TInputs {
  std::vector<double> Lengths;                  // mm, from 10 to 10^8, every magnitude as often as the others
  std::vector<double> ShortLengths;             // mm, up to 300 m
  std::vector<std::u16string> MetreTexts;       // 1,234.568 m
  std::vector<std::u16string> FeetTexts;        // 5'6 1/2"
  std::vector<std::u16string> NoLengthWords;    // 40 characters: words and numbers
  std::vector<std::u16string> NoLengthEnds;     // 40 characters: a number up to the last one
  std::vector<std::u16string> ImperialTexts;    // 40 characters, three imperial numbers
  std::vector<std::u16string> PlainExpressions; // (1+2)*3-4/5*(6-7)
  std::vector<std::u16string> Elevations;       // L1+5'6 1/2"
};

const TInputs& Inputs();

/// The same texts for libraries that read UTF-8.
std::vector<std::string> Narrow(const std::vector<std::u16string>& Texts);

} // namespace unitlib::bench
