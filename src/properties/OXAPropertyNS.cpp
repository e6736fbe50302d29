#include "properties/OXAPropertyNS.h"

#include <string>
#include <utility>

#include "core/hash_text.h"

OXAPropertyNS::OXAPropertyNS(OXAPropertyNS& parent, oxa::thin_string name, std::size_t hash)
    : parent_(&parent), name_(std::move(name)), hash_(hash) {
  (parent.last_child_ == nullptr ? parent.first_child_ : parent.last_child_->next_sibling_) = this;
  parent.last_child_ = this;
}

OXAPropertyNS::~OXAPropertyNS() {
  clear();
  if (path_ != nullptr) {
    path_->release();
  }
}

std::size_t OXAPropertyNS::hash_of_child(std::string_view name) const {
  return hash_ * 31 + oxa::hash_text(name);
}

oxa::Ref<OXAProperty> OXAPropertyNS::make_property(std::string_view path, std::string_view name) {
  if (path_ == nullptr) {
    path_ = oxa::shared_text::create(path);
  }
  std::string full;
  full.reserve(path.size() + 2 + name.size());
  full.append(path).append("::").append(name);
  oxa::thin_string full_namespace(full);
  path_->add_references(1);
  return oxa::make<OXAProperty>(std::move(full_namespace), oxa::thin_string::share(path_),
                                name.size());
}

void OXAPropertyNS::add(oxa::Ref<OXAProperty> property) noexcept {
  OXAProperty* added = property.detach();
  added->previous_ = last_;
  (last_ == nullptr ? first_ : last_->next_) = added;
  last_ = added;
}

oxa::Ref<OXAProperty> OXAPropertyNS::remove(OXAProperty& property) noexcept {
  (property.previous_ == nullptr ? first_ : property.previous_->next_) = property.next_;
  (property.next_ == nullptr ? last_ : property.next_->previous_) = property.previous_;
  property.previous_ = nullptr;
  property.next_ = nullptr;
  return oxa::Ref<OXAProperty>::adopt(&property);
}

void OXAPropertyNS::clear() noexcept {
  while (first_ != nullptr) {
    remove(*first_);
  }
}

void OXAPropertyNS::capture(std::list<IOXAProperty*>& list) const {
  for (OXAProperty* each = first_; each != nullptr; each = each->next_) {
    list.push_back(each);
  }
}

const OXAPropertyNS* OXAPropertyNS::next_below(const OXAPropertyNS& top) const {
  if (first_child_ != nullptr) {
    return first_child_;
  }
  const OXAPropertyNS* at = this;
  while (at != &top && at->next_sibling_ == nullptr) {
    at = at->parent_;
  }
  return at == &top ? nullptr : at->next_sibling_;
}
