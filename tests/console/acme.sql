UPDATE Companies SET CompanyName='Acme', Address='1 Elm', City='Ottawa', Province='ON',
  PostalCode='K2G 0Z1', Country='Canada', OfficeNumber='1', FaxNumber='2', Email='acme@x'
  WHERE CompanyID={company};
UPDATE Contacts SET DisplayName='Zoë', BusinessName=NULL, BusinessAddress='9 Oak',
  BusinessCity='Hull', BusinessProvince=NULL, BusinessPostalCode=NULL, BusinessCountry='USA',
  BusinessPhone_Main='3', BusinessPhone_Fax=NULL, BusinessPhone_Cell=NULL, BusinessEmail='zoe@x',
  PersonalEmail='ACME@x', HomeAddress='5 Fir', HomeCity=NULL, HomeProvince=NULL,
  HomePostalCode=NULL, HomeCountry=NULL, InheritCompanyInfo=TRUE WHERE ContactID={contact};
DELETE FROM ContactLinks WHERE CompanyNum={company} AND ContactIDNum<>{contact}
