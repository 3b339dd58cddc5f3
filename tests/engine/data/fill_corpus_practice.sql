-- Added to the values practice for the fill corpus: names in other scripts and cases, a byte
-- that isn't UTF-8, and values that hold placeholders themselves.
UPDATE CustomAddressFields SET ContactLabel1 = 'Société Straße';

INSERT INTO Companies (CompanyID, CompanyName, Address, City, Province, PostalCode, Country) VALUES
  (4, 'SOCIÉTÉ «Contact First Name» Straße', '1 Rue de l''Église', 'Québec', 'Quebec', 'G1R 4S9', 'Canada'),
  (5, CAST(X'4163C3A96DFF2043C3' AS TEXT), '2 Bad Byte Road', 'Kingston', 'Ontario', 'K7L 2B2', 'Canada'),
  (6, '\''abCity\''bb Holdings «Postal Code»', '3 Nested Lane', 'İstanbul', 'Ontario', 'K7L 3C3', 'Canada');

INSERT INTO Contacts (ContactID, DisplayName, FirstName, LastName, InheritCompanyInfo, Custom1) VALUES
  (104, 'Zoë Weiß', 'Zoë', 'WEISS «Company Name»', 1, 'ﬃ ligature «Contact Last Name»'),
  (105, 'Bad Byte', CAST(X'C3' AS TEXT), CAST(X'E282AC2DE282' AS TEXT), 1, NULL),
  (106, 'Nested Name', '«Contact Last Name»', 'Sky' || char(13) || char(10) || 'Line', 1, NULL);

INSERT INTO ContactLinks (CompanyNum, ContactIDNum, DefaultContact) VALUES
  (4, 104, 1), (5, 105, 1), (6, 106, 1);
