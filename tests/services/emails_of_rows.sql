INSERT INTO ClientNotification
  (NotificationType, Field1, Field4, Memo, ClientNotificationModifiedStamp, Field2, NotificationSent)
VALUES
  (1, 'jane@client.example', 'Your T4 Summary is due', '{\rtf1 Dear Jane,\par }', '2026-04-15 09:30:02', 'left@client.example', 0),
  (1, 'jane@client.example', 'Your T4 Summary is due', '{\rtf1 Dear Jane,\par }', '2026-04-15 09:30:01', NULL, 0),
  (1, 'jane@client.example', 'Your T4 Summary is due', 'Dear John', '2026-04-15 09:30:03', NULL, 0),
  (1, 'jane@client.example', 'Your T4 Summary is due', '{\rtf1 Dear Jane,\par }', '2026-04-15 09:30:03', NULL, 1),
  (2, 'jane@client.example', 'Your T4 Summary is due', '{\rtf1 Dear Jane,\par }', '2026-04-15 09:30:03', NULL, 0);
