' cscript vertrag.vbs DATASET RESULT
' Concludes a contract through the component, over the database of the dataset.
Option Explicit
Dim server, table, contract, article, articles, entry

Set server = CreateObject("Pactora.AutomationHost")
server.Load WScript.Arguments(0)

' The contract belongs to the current address: here the first one.
Set table = server.App.CurrentDb.Tables.Item("Adressen")
table.MoveFirst 0

Set contract = CreateObject("Pactora2.vv_CContractD")
contract.lVertragArt = 1
contract.VertragBeginn = DateSerial(2024, 3, 1)
contract.VertragGeschlossenAm = DateSerial(2024, 3, 1)
contract.Bezeichnung = "Wartung"
contract.Dauer = 12
contract.Zahlungsperiode = 1
contract.Verlaengerungsdauer = 12
contract.VerlaengerungsZahlungsperiode = 12
contract.dblRabatt = 10
contract.KuendFristInWochen = 6
contract.SetztMerkmalGruppe = "Wartung"
contract.SetztMerkmal = "Wartungsvertrag"
contract.SetztWert = "ja"

Set article = CreateObject("Pactora2.vv_CArticle")
article.sArtikelID = "A0001"
article.dblAnzahl = 2
article.lPreisDauer = 12

' Any object with Count and Item(1) to Item(Count) is a collection.
Set articles = CreateObject("Scripting.Dictionary")
articles.Add 1, article

Set entry = CreateObject("Pactora2.CVV")
entry.NewContractDebitor server.App, contract, articles

Set table = server.App.CurrentDb.Tables.Item("vv_Vertraege")
WScript.Echo "Vertrag " & table.Fields.Item("Vertragnummer").Value & ", Wert " & _
  table.Fields.Item("AktValue").Value
server.Save WScript.Arguments(1)
