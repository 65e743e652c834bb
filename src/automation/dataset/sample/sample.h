// The sample company as a dataset; the program carries sample.json in it.
#pragma once

#include <string_view>

namespace pactora::dataset {

std::string_view SampleDataset();

}  // namespace pactora::dataset
