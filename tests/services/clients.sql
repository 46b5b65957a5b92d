INSERT INTO Companies (CompanyID, CompanyName, CorporateName, ClientIDStr, PartnerName, AccountantName, OfficeNumber, FaxNumber, Email, DefaultContactName, DefaultContactPhoneNumber, DefaultContactEmail)
VALUES
  (10, 'Harbour Cafe', 'Harbour Inc.', 'HC1', 'P. Partner', 'A. Accountant', '555-0100', '555-0101', 'cafe@x.example', 'Stored Name', '555-0102', 'stored@x.example'),
  (11, '', 'Numbered Ltd.', NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL),
  (12, 'Hidden', NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL);

INSERT INTO ClientData (ClientDataID, CompanyIDNum, ShowThisClient)
VALUES
  (100, 10, 1),
  (101, 11, 1),
  (102, 12, 0);

INSERT INTO Contacts (ContactID, DisplayName, FirstName, LastName, SpouseFirstName, ClientIDStr, PartnerName, AccountantName, BusinessPhone_Main, HomePhone_Main, BusinessPhone_Fax, HomePhone_Fax, BusinessEmail, PersonalEmail)
VALUES
  (20, 'Jane Smith', 'Jane', 'Smith', 'John', 'JS', 'P. Partner', 'A. Accountant', '555-0110', '555-0111', '', '555-0112', 'jane@work.example', 'jane@home.example'),
  (21, NULL, 'Luc', 'Roy', NULL, NULL, NULL, NULL, NULL, '555-0120', NULL, NULL, '', 'luc@home.example');

INSERT INTO ContactLinks (ContactIDNum, CompanyNum, DefaultContact)
VALUES
  (20, 11, 0),
  (21, 11, 1),
  (20, 11, 1),
  (20, 10, 0);

INSERT INTO AccountantFirmInfo (CompanyName, CorporateName)
VALUES
  (NULL, ''),
  ('', 'Fisher & Lind');

INSERT INTO AccountantEmployeeInfo (ContactID, DisplayName)
VALUES
  (5, 'Émile Côté'),
  (6, 'Ann Lee');

INSERT INTO Categories (CategoryID, CategoryName, CategorySpecialCode)
VALUES
  (30, 'Business Clients', 2),
  (31, 'Address Book', 1),
  (32, 'Other', NULL);
