#pragma once

#include <cstddef>
#include <cstdint>

namespace tremlo::fuzz {

/// Each target hands one input to its readers and ends the process when a rule is broken that holds for every
/// input. The fuzz programs call them with what the fuzzer makes up, the tests with the files of the corpus.
void FuzzWaveCsv(const std::uint8_t* data, std::size_t size);
void FuzzTables(const std::uint8_t* data, std::size_t size);
void FuzzProject(const std::uint8_t* data, std::size_t size);
void FuzzZoneMap(const std::uint8_t* data, std::size_t size);
void FuzzAnswer(const std::uint8_t* data, std::size_t size);
void FuzzRecord(const std::uint8_t* data, std::size_t size);
void FuzzRecordArchive(const std::uint8_t* data, std::size_t size);

}  // namespace tremlo::fuzz
