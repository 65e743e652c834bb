// The caller's own objects of NewContractDebitor, which are read where they are.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <memory>

#include "api/ArticleCollection.h"
#include "api/PropertyBag.h"
#include "component/com/Ref.h"

namespace pactora::component {

// Reads the properties of vv_CContractD by their names from any object, each converted as
// the user's locale has it. Null for a null object.
std::shared_ptr<api::PropertyBag> CallersContract(const Ref<IDispatch>& object);

// Reads Count and Item, from 1, anew at each look. An element that has the interface of
// vv_CArticle is an article. Null for a null object.
std::shared_ptr<api::ArticleCollection> CallersArticles(const Ref<IDispatch>& object);

}  // namespace pactora::component
