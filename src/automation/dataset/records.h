// The records of the dialog-free path, filled from JSON.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "api/ArticleCollection.h"
#include "api/PropertyBag.h"
#include "api/vv_CContractD.h"
#include "automation/formats/json.h"

namespace pactora::dataset {

// Sets the properties that the object names; null and what is left out keep the
// start value. Raises DoorError::BadInput for an unknown property and a value of
// another type.
void FillRecord(api::Record& record, const formats::Json& properties, const formats::Place& place);

std::shared_ptr<api::vv_CContractD> ReadContract(const formats::Json& contract,
                                                 const formats::Place& place);
std::shared_ptr<api::ArticleCollection> ReadArticles(const formats::Json& articles,
                                                     const formats::Place& place);

// The record as one of another class that lacks some of the properties.
std::shared_ptr<api::PropertyBag> Without(std::shared_ptr<const api::PropertyBag> record,
                                          std::vector<std::string> lacking);

}  // namespace pactora::dataset
