// The two records of NewContractDebitor as objects of automation.
#pragma once

#include <pactora2.h>

#include <cstdint>
#include <string>

#include "api/vv_CArticle.h"
#include "api/vv_CContractD.h"
#include "component/DualObject.h"
#include "component/com/text.h"

namespace pactora::component {

// What a property hands out and takes in.
inline void Give(std::int32_t member, LONG* value) { *value = member; }
inline void Give(double member, double* value) { *value = member; }
inline void Give(host::Date member, DATE* value) { *value = member.days; }
inline void Give(const std::string& member, BSTR* value) { *value = MakeText(member); }
inline void Give(bool member, VARIANT_BOOL* value) {
  *value = member ? VARIANT_TRUE : VARIANT_FALSE;
}
inline void Take(LONG value, std::int32_t& member) { member = value; }
inline void Take(double value, double& member) { member = value; }
inline void Take(DATE value, host::Date& member) { member.days = value; }
inline void Take(BSTR value, std::string& member) { member = Narrow(value); }
inline void Take(VARIANT_BOOL value, bool& member) { member = value != VARIANT_FALSE; }

template <typename Interface, typename Record>
class RecordObject : public DualObject<Interface> {
 protected:
  template <typename Member, typename Value>
  HRESULT Get(Member Record::*member, Value* value) {
    if (value == nullptr) return E_POINTER;
    return Guarded([&] { Give(record_.*member, value); });
  }
  template <typename Member, typename Value>
  HRESULT Put(Member Record::*member, Value value) {
    return Guarded([&] { Take(value, record_.*member); });
  }

 private:
  Record record_;
};

class vv_CContractDObject final : public RecordObject<Ivv_CContractD, api::vv_CContractD> {
  using R = api::vv_CContractD;

 public:
  HRESULT STDMETHODCALLTYPE get_lVertragArt(LONG* value) override {
    return Get(&R::lVertragArt, value);
  }
  HRESULT STDMETHODCALLTYPE put_lVertragArt(LONG value) override {
    return Put(&R::lVertragArt, value);
  }
  HRESULT STDMETHODCALLTYPE get_VertragBeginn(DATE* value) override {
    return Get(&R::VertragBeginn, value);
  }
  HRESULT STDMETHODCALLTYPE put_VertragBeginn(DATE value) override {
    return Put(&R::VertragBeginn, value);
  }
  HRESULT STDMETHODCALLTYPE get_VertragGeschlossenAm(DATE* value) override {
    return Get(&R::VertragGeschlossenAm, value);
  }
  HRESULT STDMETHODCALLTYPE put_VertragGeschlossenAm(DATE value) override {
    return Put(&R::VertragGeschlossenAm, value);
  }
  HRESULT STDMETHODCALLTYPE get_Bezeichnung(BSTR* value) override {
    return Get(&R::Bezeichnung, value);
  }
  HRESULT STDMETHODCALLTYPE put_Bezeichnung(BSTR value) override {
    return Put(&R::Bezeichnung, value);
  }
  HRESULT STDMETHODCALLTYPE get_Dauer(LONG* value) override { return Get(&R::Dauer, value); }
  HRESULT STDMETHODCALLTYPE put_Dauer(LONG value) override { return Put(&R::Dauer, value); }
  HRESULT STDMETHODCALLTYPE get_Zahlungsperiode(LONG* value) override {
    return Get(&R::Zahlungsperiode, value);
  }
  HRESULT STDMETHODCALLTYPE put_Zahlungsperiode(LONG value) override {
    return Put(&R::Zahlungsperiode, value);
  }
  HRESULT STDMETHODCALLTYPE get_Verlaengerungsdauer(LONG* value) override {
    return Get(&R::Verlaengerungsdauer, value);
  }
  HRESULT STDMETHODCALLTYPE put_Verlaengerungsdauer(LONG value) override {
    return Put(&R::Verlaengerungsdauer, value);
  }
  HRESULT STDMETHODCALLTYPE get_VerlaengerungsZahlungsperiode(LONG* value) override {
    return Get(&R::VerlaengerungsZahlungsperiode, value);
  }
  HRESULT STDMETHODCALLTYPE put_VerlaengerungsZahlungsperiode(LONG value) override {
    return Put(&R::VerlaengerungsZahlungsperiode, value);
  }
  HRESULT STDMETHODCALLTYPE get_dblRabatt(double* value) override {
    return Get(&R::dblRabatt, value);
  }
  HRESULT STDMETHODCALLTYPE put_dblRabatt(double value) override {
    return Put(&R::dblRabatt, value);
  }
  HRESULT STDMETHODCALLTYPE get_KuendFristInWochen(LONG* value) override {
    return Get(&R::KuendFristInWochen, value);
  }
  HRESULT STDMETHODCALLTYPE put_KuendFristInWochen(LONG value) override {
    return Put(&R::KuendFristInWochen, value);
  }
  HRESULT STDMETHODCALLTYPE get_Memo(BSTR* value) override { return Get(&R::Memo, value); }
  HRESULT STDMETHODCALLTYPE put_Memo(BSTR value) override { return Put(&R::Memo, value); }
  HRESULT STDMETHODCALLTYPE get_RabattNurErsteLaufzeit(VARIANT_BOOL* value) override {
    return Get(&R::RabattNurErsteLaufzeit, value);
  }
  HRESULT STDMETHODCALLTYPE put_RabattNurErsteLaufzeit(VARIANT_BOOL value) override {
    return Put(&R::RabattNurErsteLaufzeit, value);
  }
  HRESULT STDMETHODCALLTYPE get_SetztMerkmalGruppe(BSTR* value) override {
    return Get(&R::SetztMerkmalGruppe, value);
  }
  HRESULT STDMETHODCALLTYPE put_SetztMerkmalGruppe(BSTR value) override {
    return Put(&R::SetztMerkmalGruppe, value);
  }
  HRESULT STDMETHODCALLTYPE get_SetztMerkmal(BSTR* value) override {
    return Get(&R::SetztMerkmal, value);
  }
  HRESULT STDMETHODCALLTYPE put_SetztMerkmal(BSTR value) override {
    return Put(&R::SetztMerkmal, value);
  }
  HRESULT STDMETHODCALLTYPE get_SetztWert(BSTR* value) override {
    return Get(&R::SetztWert, value);
  }
  HRESULT STDMETHODCALLTYPE put_SetztWert(BSTR value) override { return Put(&R::SetztWert, value); }
  HRESULT STDMETHODCALLTYPE get_Auftragsnummer(BSTR* value) override {
    return Get(&R::Auftragsnummer, value);
  }
  HRESULT STDMETHODCALLTYPE put_Auftragsnummer(BSTR value) override {
    return Put(&R::Auftragsnummer, value);
  }
};

class vv_CArticleObject final : public RecordObject<Ivv_CArticle, api::vv_CArticle> {
  using R = api::vv_CArticle;

 public:
  HRESULT STDMETHODCALLTYPE get_sArtikelID(BSTR* value) override {
    return Get(&R::sArtikelID, value);
  }
  HRESULT STDMETHODCALLTYPE put_sArtikelID(BSTR value) override {
    return Put(&R::sArtikelID, value);
  }
  HRESULT STDMETHODCALLTYPE get_dblAnzahl(double* value) override {
    return Get(&R::dblAnzahl, value);
  }
  HRESULT STDMETHODCALLTYPE put_dblAnzahl(double value) override {
    return Put(&R::dblAnzahl, value);
  }
  HRESULT STDMETHODCALLTYPE get_lPreisDauer(LONG* value) override {
    return Get(&R::lPreisDauer, value);
  }
  HRESULT STDMETHODCALLTYPE put_lPreisDauer(LONG value) override {
    return Put(&R::lPreisDauer, value);
  }
  HRESULT STDMETHODCALLTYPE get_bSonderpreisVerwenden(VARIANT_BOOL* value) override {
    return Get(&R::bSonderpreisVerwenden, value);
  }
  HRESULT STDMETHODCALLTYPE put_bSonderpreisVerwenden(VARIANT_BOOL value) override {
    return Put(&R::bSonderpreisVerwenden, value);
  }
  HRESULT STDMETHODCALLTYPE get_dblPreis(double* value) override {
    return Get(&R::dblPreis, value);
  }
  HRESULT STDMETHODCALLTYPE put_dblPreis(double value) override { return Put(&R::dblPreis, value); }
  HRESULT STDMETHODCALLTYPE get_sBeschreibung(BSTR* value) override {
    return Get(&R::sBeschreibung, value);
  }
  HRESULT STDMETHODCALLTYPE put_sBeschreibung(BSTR value) override {
    return Put(&R::sBeschreibung, value);
  }
  HRESULT STDMETHODCALLTYPE get_bUseCustomDiscount(VARIANT_BOOL* value) override {
    return Get(&R::bUseCustomDiscount, value);
  }
  HRESULT STDMETHODCALLTYPE put_bUseCustomDiscount(VARIANT_BOOL value) override {
    return Put(&R::bUseCustomDiscount, value);
  }
  HRESULT STDMETHODCALLTYPE get_dblCustomDiscount(double* value) override {
    return Get(&R::dblCustomDiscount, value);
  }
  HRESULT STDMETHODCALLTYPE put_dblCustomDiscount(double value) override {
    return Put(&R::dblCustomDiscount, value);
  }
  HRESULT STDMETHODCALLTYPE get_sAuftragsnummer(BSTR* value) override {
    return Get(&R::sAuftragsnummer, value);
  }
  HRESULT STDMETHODCALLTYPE put_sAuftragsnummer(BSTR value) override {
    return Put(&R::sAuftragsnummer, value);
  }
  HRESULT STDMETHODCALLTYPE get_sGruppierung(BSTR* value) override {
    return Get(&R::sGruppierung, value);
  }
  HRESULT STDMETHODCALLTYPE put_sGruppierung(BSTR value) override {
    return Put(&R::sGruppierung, value);
  }
};

}  // namespace pactora::component
