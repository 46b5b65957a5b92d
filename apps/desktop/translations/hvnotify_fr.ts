<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr_CA" sourcelanguage="en">
<context>
    <name>QObject</name>
    <message>
        <source>an unknown fault</source>
        <translation>une erreur inconnue</translation>
    </message>
    <message>
        <source>A fault of the program</source>
        <translation>Erreur du programme</translation>
    </message>
    <message>
        <source>The program has met a fault of its own, and did not do what you asked for:

%1</source>
        <translation>Le programme a rencontré une erreur interne et n’a pas fait ce que vous demandiez&#xa0;:

%1</translation>
    </message>
    <message>
        <source>%1, ticked</source>
        <translation>%1, coché</translation>
    </message>
    <message>
        <source>%1, not ticked</source>
        <translation>%1, non coché</translation>
    </message>
    <message>
        <source>Rows: %L1</source>
        <translation>Lignes&#xa0;: %L1</translation>
    </message>
    <message numerus="yes">
        <source>%Ln found</source>
        <translation>
            <numerusform>%Ln trouvé</numerusform>
            <numerusform>%Ln trouvés</numerusform>
        </translation>
    </message>
    <message>
        <source>None of that name</source>
        <translation>Aucun de ce nom</translation>
    </message>
    <message>
        <source>They stand as they were loaded.</source>
        <translation>Elles sont dans l’ordre du chargement.</translation>
    </message>
    <message>
        <source>Sorted by: %1.</source>
        <translation>Triées par&#xa0;: %1.</translation>
    </message>
    <message>
        <source>Rows: %L1.</source>
        <translation>Lignes&#xa0;: %L1.</translation>
    </message>
    <message>
        <source>Client</source>
        <translation>Client</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>Numéro</translation>
    </message>
    <message>
        <source>Phone</source>
        <translation>Téléphone</translation>
    </message>
    <message>
        <source>Email</source>
        <translation>Courriel</translation>
    </message>
    <message>
        <source>Accountant</source>
        <translation>Comptable</translation>
    </message>
    <message>
        <source>Notify on</source>
        <translation>Aviser le</translation>
    </message>
    <message>
        <source>Task</source>
        <translation>Tâche</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>Mode</translation>
    </message>
    <message>
        <source>State</source>
        <translation>État</translation>
    </message>
    <message>
        <source>Sent</source>
        <translation>Envoyé</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>Sent by</source>
        <translation>Envoyé par</translation>
    </message>
    <message>
        <source>dddd, MMMM d</source>
        <comment>a day&apos;s format</comment>
        <translation>dddd d MMMM</translation>
    </message>
    <message>
        <source>MMMM d</source>
        <comment>a day&apos;s format</comment>
        <translation>d MMMM</translation>
    </message>
    <message>
        <source>MMM d</source>
        <comment>a day&apos;s format</comment>
        <translation>d MMM</translation>
    </message>
    <message>
        <source>MMM d, yyyy</source>
        <comment>a day&apos;s format</comment>
        <translation>d MMM yyyy</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>de %1 à %2</translation>
    </message>
    <message>
        <source>Overdue</source>
        <translation>En retard</translation>
    </message>
    <message>
        <source>the notify date has passed</source>
        <translation>la date d’avis est passée</translation>
    </message>
    <message>
        <source>Nothing overdue</source>
        <translation>Rien en retard</translation>
    </message>
    <message>
        <source>Today</source>
        <translation>Aujourd’hui</translation>
    </message>
    <message>
        <source>Nothing today</source>
        <translation>Rien aujourd’hui</translation>
    </message>
    <message>
        <source>This week</source>
        <translation>Cette semaine</translation>
    </message>
    <message>
        <source>Nothing more this week</source>
        <translation>Plus rien cette semaine</translation>
    </message>
    <message>
        <source>to %1</source>
        <translation>au %1</translation>
    </message>
    <message>
        <source>Nothing that week</source>
        <translation>Rien cette semaine-là</translation>
    </message>
    <message>
        <source>%L1 overdue, %L2 today, %L3 later this week</source>
        <translation>%L1 en retard, %L2 aujourd’hui, %L3 plus tard cette semaine</translation>
    </message>
    <message>
        <source>The next ones go out in the week of %1.</source>
        <translation>Les prochains avis partent la semaine du %1.</translation>
    </message>
    <message>
        <source>Fax</source>
        <translation>Télécopie</translation>
    </message>
    <message>
        <source>Letter</source>
        <translation>Lettre</translation>
    </message>
    <message>
        <source>Send Now</source>
        <translation>Envoyer</translation>
    </message>
    <message>
        <source>Send Fax</source>
        <translation>Télécopier</translation>
    </message>
    <message>
        <source>Print</source>
        <translation>Imprimer</translation>
    </message>
    <message>
        <source>Call</source>
        <translation>Appeler</translation>
    </message>
    <message>
        <source>Fix...</source>
        <translation>Corriger...</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Ready</source>
        <translation>Prêt</translation>
    </message>
    <message>
        <source>No address</source>
        <translation>Sans adresse</translation>
    </message>
    <message>
        <source>Call again</source>
        <translation>À rappeler</translation>
    </message>
    <message>
        <source>Scheduled</source>
        <translation>Planifié</translation>
    </message>
    <message>
        <source>Interrupted</source>
        <translation>Interrompu</translation>
    </message>
    <message>
        <source>pending</source>
        <translation>en attente</translation>
    </message>
    <message>
        <source>is pending</source>
        <translation>est en attente</translation>
    </message>
    <message>
        <source>sent</source>
        <translation>envoyé</translation>
    </message>
    <message>
        <source>was sent</source>
        <translation>a été envoyé</translation>
    </message>
    <message>
        <source>cancelled</source>
        <translation>annulé</translation>
    </message>
    <message>
        <source>is cancelled</source>
        <translation>est annulé</translation>
    </message>
    <message>
        <source>interrupted while being sent</source>
        <translation>interrompu pendant l’envoi</translation>
    </message>
    <message>
        <source>was interrupted while being sent</source>
        <translation>a été interrompu pendant l’envoi</translation>
    </message>
    <message>
        <source>interrupted while being cancelled</source>
        <translation>interrompu pendant l’annulation</translation>
    </message>
    <message>
        <source>was interrupted while being cancelled</source>
        <translation>a été interrompu pendant l’annulation</translation>
    </message>
    <message>
        <source>being written</source>
        <translation>en cours de rédaction</translation>
    </message>
    <message>
        <source>is still being written</source>
        <translation>est encore en cours de rédaction</translation>
    </message>
    <message>
        <source>%1 (unknown status %2)</source>
        <translation>%1 (statut inconnu %2)</translation>
    </message>
    <message>
        <source>Error %1</source>
        <translation>Erreur %1</translation>
    </message>
    <message>
        <source>
Source: %1</source>
        <translation>
Source&#xa0;: %1</translation>
    </message>
    <message>
        <source>
In: %1</source>
        <translation>
Dans&#xa0;: %1</translation>
    </message>
    <message>
        <source>Something went wrong</source>
        <translation>Une erreur s’est produite</translation>
    </message>
    <message>
        <source>Continue goes on behind the failed step, Leave ends the operation as far as it has come, Try Again repeats the step.</source>
        <translation>«&#xa0;Continuer&#xa0;» passe à l’étape qui suit celle qui a échoué, «&#xa0;Abandonner&#xa0;» arrête l’opération là où elle en est, «&#xa0;Réessayer&#xa0;» reprend l’étape.</translation>
    </message>
    <message>
        <source>&amp;Continue</source>
        <translation>&amp;Continuer</translation>
    </message>
    <message>
        <source>&amp;Leave</source>
        <translation>&amp;Abandonner</translation>
    </message>
    <message>
        <source>&amp;Try Again</source>
        <translation>&amp;Réessayer</translation>
    </message>
    <message>
        <source>Please Check</source>
        <translation>À vérifier</translation>
    </message>
    <message>
        <source>Client Notifications</source>
        <translation>Avis aux clients</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Avertissement</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Erreur</translation>
    </message>
    <message>
        <source>As the desktop has it</source>
        <translation>Celle du bureau</translation>
    </message>
    <message>
        <source>one database at a time</source>
        <translation>une seule base de données à la fois</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no date; write it as 2026-04-30</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas une date; écrivez-la ainsi&#xa0;: 2026-04-30</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no user&apos;s number</source>
        <translation>«&#xa0;%1&#xa0;» n’est le numéro d’aucun utilisateur</translation>
    </message>
    <message>
        <source>The notices that a firm owes its clients.</source>
        <translation>Les avis qu’un cabinet doit à ses clients.</translation>
    </message>
    <message>
        <source>the database (default: the last one)</source>
        <translation>la base de données (sinon la dernière utilisée)</translation>
    </message>
    <message>
        <source>the date to work with</source>
        <translation>la date de travail</translation>
    </message>
    <message>
        <source>who works: the id of a member of staff</source>
        <translation>qui travaille&#xa0;: le numéro d’un membre du personnel</translation>
    </message>
    <message>
        <source>folder for emails</source>
        <translation>dossier des courriels</translation>
    </message>
    <message>
        <source>folder for the documents of clients</source>
        <translation>dossier des documents des clients</translation>
    </message>
    <message>
        <source>the installation&apos;s firm code</source>
        <translation>le code de cabinet de l’installation</translation>
    </message>
    <message>
        <source>The mail program of this desktop cannot be opened.</source>
        <translation>Le programme de courriel de ce bureau ne peut pas être ouvert.</translation>
    </message>
    <message>
        <source>scheduled</source>
        <translation>planifié</translation>
    </message>
    <message>
        <source>due</source>
        <translation>à aviser</translation>
    </message>
    <message>
        <source>Sent to %1 (%2).</source>
        <translation>Envoyé à %1 (%2).</translation>
    </message>
    <message>
        <source>It was sent to %1 before, and is marked so now.</source>
        <translation>L’avis avait déjà été envoyé à %1; il est maintenant marqué comme tel.</translation>
    </message>
    <message>
        <source>Marked as sent to %1.</source>
        <translation>Marqué comme envoyé à %1.</translation>
    </message>
    <message>
        <source>The notification to %1 is cancelled.</source>
        <translation>L’avis à %1 est annulé.</translation>
    </message>
    <message>
        <source>The notification to %1 is no email: refresh the page.</source>
        <translation>L’avis à %1 n’est pas un courriel&#xa0;: actualisez la page.</translation>
    </message>
    <message>
        <source>Nothing was sent: the notification to %1 was sent before.</source>
        <translation>Rien n’a été envoyé&#xa0;: l’avis à %1 l’avait déjà été.</translation>
    </message>
    <message>
        <source>Nothing was sent: the notification to %1 is cancelled.</source>
        <translation>Rien n’a été envoyé&#xa0;: l’avis à %1 est annulé.</translation>
    </message>
    <message>
        <source>The notification to %1 could not be cancelled: %2</source>
        <translation>L’avis à %1 n’a pas pu être annulé&#xa0;: %2</translation>
    </message>
    <message>
        <source>Nobody knows whether the email to %1 was sent: ask the client, then settle it in the notifications list.</source>
        <translation>Personne ne sait si le courriel à %1 a été envoyé&#xa0;: demandez au client, puis réglez l’avis dans la liste des avis.</translation>
    </message>
    <message>
        <source>It is not certain that the email to %1 was sent: %2</source>
        <translation>Il n’est pas certain que le courriel à %1 a été envoyé&#xa0;: %2</translation>
    </message>
    <message>
        <source>Nothing was sent: there is no email address for %1.</source>
        <translation>Rien n’a été envoyé&#xa0;: il n’y a pas d’adresse de courriel pour %1.</translation>
    </message>
    <message>
        <source>The email to %1 was not sent: %2</source>
        <translation>Le courriel à %1 n’a pas été envoyé&#xa0;: %2</translation>
    </message>
    <message>
        <source>Another desk is at work on it. Try again in a moment.</source>
        <translation>Un autre poste y travaille. Réessayez dans un instant.</translation>
    </message>
    <message>
        <source>The notification was deleted meanwhile. Refresh the page.</source>
        <translation>L’avis a été supprimé entre-temps. Actualisez la page.</translation>
    </message>
    <message>
        <source>and %L1 more</source>
        <translation>et %L1 de plus</translation>
    </message>
    <message>
        <source>There is no %1 any more.</source>
        <translation>Introuvable, sans doute supprimé entre-temps&#xa0;: %1.</translation>
    </message>
    <message>
        <source>The email is scheduled already.</source>
        <translation>Le courriel est déjà planifié.</translation>
    </message>
    <message>
        <source>The email was deleted by someone else meanwhile. What you wrote is lost.</source>
        <translation>Le courriel a été supprimé entre-temps par quelqu’un d’autre. Votre texte est perdu.</translation>
    </message>
    <message>
        <source>is no call</source>
        <translation>n’est pas un appel</translation>
    </message>
    <message>
        <source>Notification %1 %2. Nothing was noted.</source>
        <translation>L’avis %1 %2. Rien n’a été noté.</translation>
    </message>
    <message>
        <source>notification %1</source>
        <translation>l’avis %1</translation>
    </message>
    <message>
        <source>the notification to %1</source>
        <translation>l’avis à %1</translation>
    </message>
    <message>
        <source>There is no notification %1 any more. Refresh the list.</source>
        <translation>L’avis %1 n’existe plus. Actualisez la liste.</translation>
    </message>
    <message>
        <source>Another desk is at work on %1. Try again in a moment.</source>
        <translation>Un autre poste travaille sur %1. Réessayez dans un instant.</translation>
    </message>
    <message>
        <source>Nothing was done: by now %1 %2.</source>
        <translation>Rien n’a été fait&#xa0;: entre-temps, %1 %2.</translation>
    </message>
    <message>
        <source>Nothing was done: it was sent or cancelled meanwhile.</source>
        <translation>Rien n’a été fait&#xa0;: l’avis a été envoyé ou annulé entre-temps.</translation>
    </message>
    <message>
        <source>The email was sent, but %1</source>
        <translation>Le courriel a été envoyé, mais&#xa0;: %1</translation>
    </message>
    <message>
        <source>The email was sent, but could not be marked so: %1</source>
        <translation>Le courriel a été envoyé, mais n’a pas pu être marqué comme tel&#xa0;: %1</translation>
    </message>
    <message>
        <source>1 row cannot be read: %1</source>
        <translation>1 ligne ne peut pas être lue&#xa0;: %1</translation>
    </message>
    <message>
        <source>%L1 rows cannot be read: %2</source>
        <translation>%L1 lignes ne peuvent pas être lues&#xa0;: %2</translation>
    </message>
    <message>
        <source>%1 cannot be written: %2.</source>
        <translation>%1 ne peut pas être écrit&#xa0;: %2.</translation>
    </message>
    <message>
        <source>The printer %1 does not take the pages.</source>
        <translation>L’imprimante %1 n’accepte pas les pages.</translation>
    </message>
    <message>
        <source>There is no printer to print on.</source>
        <translation>Il n’y a aucune imprimante.</translation>
    </message>
    <message>
        <source>The document has none of the pages that were chosen; it has %L1.</source>
        <translation>Le document n’a aucune des pages choisies; nombre de ses pages&#xa0;: %L1.</translation>
    </message>
    <message>
        <source>Goes out on %1</source>
        <translation>Envoi&#xa0;: %1</translation>
    </message>
    <message>
        <source>No email address on file</source>
        <translation>Aucune adresse de courriel au dossier</translation>
    </message>
    <message>
        <source>No fax number on file</source>
        <translation>Aucun numéro de télécopieur au dossier</translation>
    </message>
    <message>
        <source>No address on file</source>
        <translation>Aucune adresse au dossier</translation>
    </message>
    <message>
        <source>Call due on %1</source>
        <translation>Appel prévu&#xa0;: %1</translation>
    </message>
    <message>
        <source>No telephone number on file</source>
        <translation>Aucun numéro de téléphone au dossier</translation>
    </message>
    <message>
        <source>No notification waits</source>
        <translation>Aucun avis en attente</translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation>Annulé</translation>
    </message>
    <message>
        <source>Interrupted on the way</source>
        <translation>Interrompu en cours de route</translation>
    </message>
    <message>
        <source>Not set up</source>
        <translation>Non configuré</translation>
    </message>
    <message>
        <source>A copy is filed with the client&apos;s documents when this window closes</source>
        <translation>Une copie est classée avec les documents du client à la fermeture de cette fenêtre</translation>
    </message>
    <message>
        <source>%1, due on %2</source>
        <translation>%1, échéance&#xa0;: %2</translation>
    </message>
    <message>
        <source>%1 (our firm)</source>
        <translation>%1 (notre cabinet)</translation>
    </message>
    <message>
        <source>Sends it now to %1</source>
        <translation>L’envoie maintenant à %1</translation>
    </message>
    <message>
        <source>Saves it, to be sent to %1 on %2</source>
        <translation>L’enregistre, à envoyer à %1 le %2</translation>
    </message>
    <message>
        <source>Shows the pages of the fax to %1</source>
        <translation>Montre les pages de la télécopie à %1</translation>
    </message>
    <message>
        <source>Saves it, to be faxed to %1 on %2</source>
        <translation>L’enregistre, à télécopier à %1 le %2</translation>
    </message>
    <message>
        <source>Shows the letter as it is printed</source>
        <translation>Montre la lettre telle qu’imprimée</translation>
    </message>
    <message>
        <source>Saves it, to be printed on %2</source>
        <translation>L’enregistre, à imprimer le %2</translation>
    </message>
    <message>
        <source>Saves it, to call %1 on %2</source>
        <translation>L’enregistre, pour appeler %1 le %2</translation>
    </message>
    <message>
        <source>Opens it in your email program, addressed to %1</source>
        <translation>L’ouvre dans votre logiciel de courriel, adressé à %1</translation>
    </message>
    <message>
        <source>%1 and %L2 more</source>
        <translation>%1 et %L2 de plus</translation>
    </message>
    <message>
        <source>Nobody is named yet to whom it goes</source>
        <translation>Aucun destinataire n’est encore nommé</translation>
    </message>
    <message>
        <source>No date is written yet</source>
        <translation>Aucune date n’est encore inscrite</translation>
    </message>
    <message>
        <source>This day has passed.</source>
        <translation>Ce jour est passé.</translation>
    </message>
    <message>
        <source>This is after the due date, %1.</source>
        <translation>C’est après l’échéance, %1.</translation>
    </message>
    <message>
        <source>Notification date %1: %2  Do you want to go on?</source>
        <translation>Date d’avis %1&#xa0;: %2  Voulez-vous continuer?</translation>
    </message>
    <message>
        <source>: start the program with %1 FOLDER</source>
        <translation>&#xa0;: démarrez le programme avec %1 DOSSIER</translation>
    </message>
    <message>
        <source>Nothing was sent: the notification to %1 is still being written.</source>
        <translation>Rien n’a été envoyé&#xa0;: l’avis à %1 est encore en cours de rédaction.</translation>
    </message>
    <message>
        <source>A test of the email to %1 was sent.</source>
        <translation>Un essai du courriel à %1 a été envoyé.</translation>
    </message>
    <message>
        <source>dddd, MMMM d, yyyy</source>
        <comment>a day&apos;s format</comment>
        <translation>dddd d MMMM yyyy</translation>
    </message>
    <message>
        <source>Nothing was sent: the email to %1 has no text.</source>
        <translation>Rien n’a été envoyé&#xa0;: le courriel à %1 n’a pas de texte.</translation>
    </message>
    <message>
        <source>Nothing found here</source>
        <translation>Rien trouvé ici</translation>
    </message>
    <message>
        <source>%1: to be armed for %2</source>
        <translation>%1&#xa0;: à armer pour le %2</translation>
    </message>
    <message numerus="yes">
        <source>The dates of %Ln tasks are past: they are due at once.</source>
        <translation>
            <numerusform>La date de %Ln tâche est passée&#xa0;: elle est due tout de suite.</numerusform>
            <numerusform>Les dates de %Ln tâches sont passées&#xa0;: elles sont dues tout de suite.</numerusform>
        </translation>
    </message>
    <message>
        <source>Do you want to go on?</source>
        <translation>Voulez-vous continuer?</translation>
    </message>
</context>
<context>
    <name>Words</name>
    <message>
        <source>Other Kinds</source>
        <translation>Autres types</translation>
    </message>
    <message>
        <source>%1 is no number</source>
        <translation>%1 n’est pas un nombre</translation>
    </message>
    <message>
        <source>%1 is neither true nor false</source>
        <translation>%1 n’est ni vrai ni faux</translation>
    </message>
    <message>
        <source>%1 is no date</source>
        <translation>%1 n’est pas une date</translation>
    </message>
    <message>
        <source>%1 cannot be read: %2</source>
        <translation>%1 ne peut pas être lu&#xa0;: %2</translation>
    </message>
    <message>
        <source>%1 cannot be read until its %2 is mended: %3</source>
        <translation>%1 ne peut pas être lu tant que son champ %2 n’est pas corrigé&#xa0;: %3</translation>
    </message>
    <message>
        <source>The template in ScheduleTypes.NotificationComment is larger than 16 MiB</source>
        <translation>Le modèle dans ScheduleTypes.NotificationComment dépasse 16 Mio</translation>
    </message>
    <message>
        <source>The current row has been deleted</source>
        <translation>La ligne courante a été supprimée</translation>
    </message>
    <message>
        <source>The database is closed</source>
        <translation>La base de données est fermée</translation>
    </message>
    <message>
        <source>Text with a NUL byte cannot be stored in %1</source>
        <translation>Un texte contenant un octet NUL ne peut pas être enregistré dans %1</translation>
    </message>
    <message>
        <source>Text that is no UTF-8 cannot be stored in %1</source>
        <translation>Un texte qui n’est pas en UTF-8 ne peut pas être enregistré dans %1</translation>
    </message>
    <message>
        <source>Text in a statement holds a NUL byte or is no UTF-8</source>
        <translation>Le texte d’une instruction contient un octet NUL ou n’est pas en UTF-8</translation>
    </message>
    <message>
        <source>The connection to the database server was lost</source>
        <translation>La connexion au serveur de base de données a été perdue</translation>
    </message>
    <message>
        <source>The database server has ended the connection</source>
        <translation>Le serveur de base de données a mis fin à la connexion</translation>
    </message>
    <message>
        <source>The disk of the database server is full</source>
        <translation>Le disque du serveur de base de données est plein</translation>
    </message>
    <message>
        <source>The database server is overloaded</source>
        <translation>Le serveur de base de données est surchargé</translation>
    </message>
    <message>
        <source>The row is being changed by another user</source>
        <translation>La ligne est en cours de modification par un autre utilisateur</translation>
    </message>
    <message>
        <source>The database can only be read</source>
        <translation>La base de données est en lecture seule</translation>
    </message>
    <message>
        <source>The database user has no right to do this</source>
        <translation>L’utilisateur de la base de données n’a pas le droit de faire cela</translation>
    </message>
    <message>
        <source>No key is left in the table</source>
        <translation>Il ne reste aucune clé dans la table</translation>
    </message>
    <message>
        <source>The row breaks a rule of its table</source>
        <translation>La ligne enfreint une règle de sa table</translation>
    </message>
    <message>
        <source>The database does not accept a value</source>
        <translation>La base de données n’accepte pas une valeur</translation>
    </message>
    <message>
        <source>The database does not accept the statement</source>
        <translation>La base de données n’accepte pas l’instruction</translation>
    </message>
    <message>
        <source>The database has no such schema</source>
        <translation>La base de données n’a pas ce schéma</translation>
    </message>
    <message>
        <source>The database server cannot read or write its files</source>
        <translation>Le serveur de base de données ne peut pas lire ou écrire ses fichiers</translation>
    </message>
    <message>
        <source>The database is damaged</source>
        <translation>La base de données est endommagée</translation>
    </message>
    <message>
        <source>The database server cannot be reached: %1</source>
        <translation>Le serveur de base de données est injoignable&#xa0;: %1</translation>
    </message>
    <message>
        <source>The connection to the database server was lost: %1</source>
        <translation>La connexion au serveur de base de données a été perdue&#xa0;: %1</translation>
    </message>
    <message>
        <source>The database failed</source>
        <translation>La base de données a échoué</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1&#xa0;: %2</translation>
    </message>
    <message>
        <source>The schemas that the address names are not there</source>
        <translation>Les schémas nommés dans l’adresse n’existent pas</translation>
    </message>
    <message>
        <source>The schema &quot;%1&quot;</source>
        <translation>Le schéma «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>%1 holds no database</source>
        <translation>%1 ne contient aucune base de données</translation>
    </message>
    <message>
        <source>%1 is not a database of this program</source>
        <translation>%1 n’est pas une base de données de ce programme</translation>
    </message>
    <message>
        <source>The address of the database server is not written as a URL</source>
        <translation>L’adresse du serveur de base de données n’est pas écrite comme une URL</translation>
    </message>
    <message>
        <source>A password is not taken from the address of a database; put it into the password file or the variable PGPASSWORD</source>
        <translation>Aucun mot de passe n’est pris dans l’adresse d’une base de données; mettez-le dans le fichier de mots de passe ou dans la variable PGPASSWORD</translation>
    </message>
    <message>
        <source>%1 was written by a newer version of this program (schema %2, known up to %3)</source>
        <translation>%1 a été écrit par une version plus récente de ce programme (schéma %2, connu jusqu’à %3)</translation>
    </message>
    <message>
        <source>%1 is unfinished: it was never filled to its end</source>
        <translation>%1 est inachevé&#xa0;: il n’a jamais été rempli jusqu’au bout</translation>
    </message>
    <message>
        <source>%1 is a folder, not a database file</source>
        <translation>%1 est un dossier, pas un fichier de base de données</translation>
    </message>
    <message>
        <source>There is no database %1</source>
        <translation>Il n’y a pas de base de données %1</translation>
    </message>
    <message>
        <source>%1 has more than one name (hard links), under which changes would be lost; remove all but one</source>
        <translation>%1 a plus d’un nom (liens physiques), sous lesquels des modifications seraient perdues; supprimez-les tous sauf un</translation>
    </message>
    <message>
        <source>%1 is mounted as a single file, without the log beside it; mount its folder</source>
        <translation>%1 est monté comme fichier seul, sans le journal à côté de lui; montez son dossier</translation>
    </message>
    <message>
        <source>%1 is a finished database</source>
        <translation>%1 est une base de données achevée</translation>
    </message>
    <message>
        <source>%1 can only be read</source>
        <translation>%1 est en lecture seule</translation>
    </message>
    <message>
        <source>The database is locked by another user</source>
        <translation>La base de données est verrouillée par un autre utilisateur</translation>
    </message>
    <message>
        <source>%1 is there already</source>
        <translation>%1 existe déjà</translation>
    </message>
    <message>
        <source>The database is locked</source>
        <translation>La base de données est verrouillée</translation>
    </message>
    <message>
        <source>The disk is full</source>
        <translation>Le disque est plein</translation>
    </message>
    <message>
        <source>The database file is damaged</source>
        <translation>Le fichier de la base de données est endommagé</translation>
    </message>
    <message>
        <source>The file is not a database</source>
        <translation>Le fichier n’est pas une base de données</translation>
    </message>
    <message>
        <source>The database file cannot be opened</source>
        <translation>Le fichier de la base de données ne peut pas être ouvert</translation>
    </message>
    <message>
        <source>The database file may not be opened</source>
        <translation>L’ouverture du fichier de la base de données n’est pas permise</translation>
    </message>
    <message>
        <source>The database file cannot be read or written; the disk may be full</source>
        <translation>Le fichier de la base de données ne peut pas être lu ou écrit; le disque est peut-être plein</translation>
    </message>
    <message>
        <source>No key is left in table %1</source>
        <translation>Il ne reste aucune clé dans la table %1</translation>
    </message>
    <message>
        <source>The outbox of this database is %1, but there is one beside the link to it as well; move all that is in %2 there and remove it</source>
        <translation>La boîte d’envoi de cette base de données est %1, mais il y en a aussi une à côté du lien qui y mène; déplacez-y tout ce que contient %2 et supprimez celle-ci</translation>
    </message>
    <message>
        <source>there is no user %1</source>
        <translation>il n’y a pas d’utilisateur %1</translation>
    </message>
    <message>
        <source>%1 (and 1 more error)</source>
        <translation>%1 (et 1 autre erreur)</translation>
    </message>
    <message>
        <source>%1 (and %2 more errors)</source>
        <translation>%1 (et %2 autres erreurs)</translation>
    </message>
    <message>
        <source>The emails of a database on a server need an outbox folder that all desks share; name one%1</source>
        <translation>Les courriels d’une base de données sur un serveur demandent un dossier de boîte d’envoi que tous les postes partagent; nommez-en un%1</translation>
    </message>
    <message>
        <source>The documents of a database on a server need a folder that all desks share; name one%1</source>
        <translation>Les documents d’une base de données sur un serveur demandent un dossier que tous les postes partagent; nommez-en un%1</translation>
    </message>
    <message>
        <source>The folder for documents %1 cannot be made: %2</source>
        <translation>Le dossier des documents %1 ne peut pas être créé&#xa0;: %2</translation>
    </message>
    <message>
        <source>The folder for documents %1 is not there; make it, or name another one%2</source>
        <translation>Le dossier des documents %1 n’existe pas; créez-le, ou nommez-en un autre%2</translation>
    </message>
    <message>
        <source>The folder for documents %1 cannot be written to: %2</source>
        <translation>Impossible d’écrire dans le dossier des documents %1&#xa0;: %2</translation>
    </message>
    <message>
        <source>notification %1</source>
        <translation>avis %1</translation>
    </message>
    <message>
        <source>task %1</source>
        <translation>tâche %1</translation>
    </message>
    <message>
        <source>appointment %1</source>
        <translation>rendez-vous %1</translation>
    </message>
    <message>
        <source>time entry %1</source>
        <translation>saisie de temps %1</translation>
    </message>
    <message>
        <source>print run %1</source>
        <translation>impression %1</translation>
    </message>
    <message>
        <source>templates %1</source>
        <translation>modèles %1</translation>
    </message>
    <message>
        <source>import %1</source>
        <translation>importation %1</translation>
    </message>
    <message>
        <source>The file of claims %1 cannot be used: %2</source>
        <translation>Le fichier des réservations %1 ne peut pas être utilisé&#xa0;: %2</translation>
    </message>
    <message>
        <source>email</source>
        <translation>courriel</translation>
    </message>
    <message>
        <source>fax</source>
        <translation>fax</translation>
    </message>
    <message>
        <source>letter</source>
        <translation>lettre</translation>
    </message>
    <message>
        <source>phone</source>
        <translation>appel</translation>
    </message>
    <message>
        <source>Do you want to close this and lose what you have changed?</source>
        <translation>Voulez-vous fermer et perdre vos modifications?</translation>
    </message>
    <message>
        <source>%1 Please correct the field %2.</source>
        <translation>%1 Veuillez corriger le champ %2.</translation>
    </message>
    <message>
        <source>The field %1 is empty, but the notification keeps what it held, &quot;%2&quot;, and goes out with it.  Do you want to go on?</source>
        <translation>Le champ %1 est vide, mais l’avis garde ce qu’il contenait, «&#xa0;%2&#xa0;», et sera envoyé ainsi.  Voulez-vous continuer?</translation>
    </message>
    <message>
        <source>Letters to be sent by %1</source>
        <translation>Lettres à envoyer d’ici le %1</translation>
    </message>
    <message>
        <source>Faxes to be sent by %1</source>
        <translation>Télécopies à envoyer d’ici le %1</translation>
    </message>
    <message>
        <source>Calls to be made by %1</source>
        <translation>Appels à faire d’ici le %1</translation>
    </message>
    <message>
        <source>Letters, faxes and calls by %1</source>
        <translation>Lettres, télécopies et appels d’ici le %1</translation>
    </message>
    <message>
        <source>The folder of no client is open</source>
        <translation>Le dossier d’aucun client n’est ouvert</translation>
    </message>
    <message>
        <source>Cannot make the folder for documents %1: %2</source>
        <translation>Impossible de créer le dossier des documents %1&#xa0;: %2</translation>
    </message>
    <message>
        <source>Cannot make the PDF: %1</source>
        <translation>Impossible de créer le PDF&#xa0;: %1</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Date</translation>
    </message>
    <message>
        <source>By</source>
        <translation>Mode</translation>
    </message>
    <message>
        <source>Client</source>
        <translation>Client</translation>
    </message>
    <message>
        <source>Task</source>
        <translation>Tâche</translation>
    </message>
    <message>
        <source>To</source>
        <translation>À</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>Numéro</translation>
    </message>
    <message>
        <source>Times</source>
        <translation>Heures</translation>
    </message>
    <message>
        <source>unknown failure of the loader</source>
        <translation>échec inconnu du chargeur</translation>
    </message>
    <message>
        <source>the component %1 was not found; tried:%2</source>
        <translation>le composant %1 est introuvable; essais&#xa0;:%2</translation>
    </message>
    <message>
        <source>cannot load %1: %2</source>
        <translation>impossible de charger %1&#xa0;: %2</translation>
    </message>
    <message>
        <source>%1 has no %2 (result %3); it is of another version</source>
        <translation>%1 n’a pas de %2 (résultat %3); c’est une autre version</translation>
    </message>
    <message>
        <source>not the component: %1</source>
        <translation>ce n’est pas le composant&#xa0;: %1</translation>
    </message>
    <message>
        <source>the component has no class %1</source>
        <translation>le composant n’a pas de classe %1</translation>
    </message>
    <message>
        <source>%1: %2.</source>
        <translation>%1&#xa0;: %2.</translation>
    </message>
    <message>
        <source>The outbox folder &quot;%1&quot; cannot be opened</source>
        <translation>Le dossier de la boîte d’envoi «&#xa0;%1&#xa0;» ne peut pas être ouvert</translation>
    </message>
    <message>
        <source>The message cannot be written into the outbox folder &quot;%1&quot;</source>
        <translation>Le message ne peut pas être écrit dans le dossier de la boîte d’envoi «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>The message cannot be put into the outbox, &quot;%1&quot; is in its way</source>
        <translation>Le message ne peut pas être mis dans la boîte d’envoi, «&#xa0;%1&#xa0;» occupe sa place</translation>
    </message>
    <message>
        <source>The message cannot be put into the outbox folder &quot;%1&quot;</source>
        <translation>Le message ne peut pas être mis dans le dossier de la boîte d’envoi «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>The outbox folder &quot;%1&quot; cannot be used</source>
        <translation>Le dossier de la boîte d’envoi «&#xa0;%1&#xa0;» ne peut pas être utilisé</translation>
    </message>
    <message>
        <source>The message may not be kept in the outbox folder &quot;%1&quot;</source>
        <translation>Le message n’est peut-être pas conservé dans le dossier de la boîte d’envoi «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>The message &quot;%1&quot; cannot be moved to &quot;%2&quot;</source>
        <translation>Le message «&#xa0;%1&#xa0;» ne peut pas être déplacé vers «&#xa0;%2&#xa0;»</translation>
    </message>
    <message>
        <source>The message cannot be taken out of the outbox folder &quot;%1&quot;</source>
        <translation>Le message ne peut pas être retiré du dossier de la boîte d’envoi «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>The firm&apos;s database cannot be read: %1</source>
        <translation>La base de données du cabinet ne peut pas être lue&#xa0;: %1</translation>
    </message>
    <message>
        <source>it stays in &quot;sending&quot;, from where nothing is sent again: %1</source>
        <translation>il reste dans «&#xa0;sending&#xa0;», d’où rien n’est renvoyé&#xa0;: %1</translation>
    </message>
    <message>
        <source>The message has no recipient.</source>
        <translation>Le message n’a aucun destinataire.</translation>
    </message>
    <message>
        <source>The firm has no email address to send from.</source>
        <translation>Le cabinet n’a aucune adresse de courriel d’expédition.</translation>
    </message>
    <message>
        <source>It is not known whether the message went out: one of its name is in the outbox, and the database has no identity that tells its messages from others&apos;.</source>
        <translation>On ne sait pas si le message est parti&#xa0;: un message du même nom est dans la boîte d’envoi, et la base de données n’a pas d’identité qui distingue ses messages de ceux des autres.</translation>
    </message>
    <message>
        <source>It is not known whether the message went out: it is in the outbox for another mail system to take.</source>
        <translation>On ne sait pas si le message est parti&#xa0;: il est dans la boîte d’envoi, où un autre système de courriel le prendra.</translation>
    </message>
    <message>
        <source>It is not known whether the message went out: sending it was interrupted, or another desk is sending it.</source>
        <translation>On ne sait pas si le message est parti&#xa0;: son envoi a été interrompu, ou un autre poste est en train de l’envoyer.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a valid email address.</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas une adresse de courriel valide.</translation>
    </message>
    <message>
        <source>The mail server cannot be found.</source>
        <translation>Le serveur de courriel est introuvable.</translation>
    </message>
    <message>
        <source>The mail server cannot be reached.</source>
        <translation>Le serveur de courriel est injoignable.</translation>
    </message>
    <message>
        <source>The mail server does not answer.</source>
        <translation>Le serveur de courriel ne répond pas.</translation>
    </message>
    <message>
        <source>The mail server does not accept the user&apos;s name and password.</source>
        <translation>Le serveur de courriel n’accepte pas le nom d’utilisateur et le mot de passe.</translation>
    </message>
    <message>
        <source>The mail server does not prove who it is.</source>
        <translation>Le serveur de courriel ne prouve pas son identité.</translation>
    </message>
    <message>
        <source>No safe connection to the mail server comes about.</source>
        <translation>Aucune connexion sécurisée au serveur de courriel ne s’établit.</translation>
    </message>
    <message>
        <source>The mail server offers no safe connection.</source>
        <translation>Le serveur de courriel n’offre aucune connexion sécurisée.</translation>
    </message>
    <message>
        <source>The file of trusted certificates cannot be read.</source>
        <translation>Le fichier des certificats de confiance ne peut pas être lu.</translation>
    </message>
    <message>
        <source>The mail server does not take the message.</source>
        <translation>Le serveur de courriel n’accepte pas le message.</translation>
    </message>
    <message>
        <source>The mail server has broken the connection.</source>
        <translation>Le serveur de courriel a coupé la connexion.</translation>
    </message>
    <message>
        <source>%1 It says: %2</source>
        <translation>%1 Il dit&#xa0;: %2</translation>
    </message>
    <message>
        <source>%1 It may have taken the message all the same.</source>
        <translation>%1 Il a peut-être accepté le message malgré tout.</translation>
    </message>
    <message>
        <source>The address names no mail server; write smtp://USER@HOST:PORT.</source>
        <translation>L’adresse ne nomme aucun serveur de courriel; écrivez smtp://UTILISATEUR@HÔTE:PORT.</translation>
    </message>
    <message>
        <source>A password in the address of a mail server could be read by others; give it in a file.</source>
        <translation>Un mot de passe dans l’adresse d’un serveur de courriel pourrait être lu par d’autres; donnez-le dans un fichier.</translation>
    </message>
    <message>
        <source>Others can read or change the password file &quot;%1&quot;; take that right from them (chmod 600).</source>
        <translation>D’autres peuvent lire ou modifier le fichier du mot de passe «&#xa0;%1&#xa0;»; retirez-leur ce droit (chmod 600).</translation>
    </message>
    <message>
        <source>The password for the mail server cannot be read from &quot;%1&quot;.</source>
        <translation>Le mot de passe du serveur de courriel ne peut pas être lu dans «&#xa0;%1&#xa0;».</translation>
    </message>
    <message>
        <source>The mail library cannot be started.</source>
        <translation>La bibliothèque de courriel ne peut pas être démarrée.</translation>
    </message>
    <message>
        <source>something about the password</source>
        <translation>quelque chose au sujet du mot de passe</translation>
    </message>
    <message>
        <source>Cannot read %1: %2</source>
        <translation>Impossible de lire %1&#xa0;: %2</translation>
    </message>
    <message>
        <source>Cannot read %1</source>
        <translation>Impossible de lire %1</translation>
    </message>
    <message>
        <source>Open for reading alone: %1</source>
        <translation>Ouvert en lecture seule&#xa0;: %1</translation>
    </message>
    <message>
        <source>There is a file %1 already</source>
        <translation>Il y a déjà un fichier %1</translation>
    </message>
    <message>
        <source>No such file: %1</source>
        <translation>Fichier introuvable&#xa0;: %1</translation>
    </message>
    <message>
        <source>There is no place to write the file to</source>
        <translation>Il n’y a aucun emplacement où écrire le fichier</translation>
    </message>
    <message>
        <source>This is a folder: %1</source>
        <translation>Ceci est un dossier&#xa0;: %1</translation>
    </message>
    <message>
        <source>Cannot delete %1: %2</source>
        <translation>Impossible de supprimer %1&#xa0;: %2</translation>
    </message>
    <message>
        <source>Cannot make the working folder %1</source>
        <translation>Impossible de créer le dossier de travail %1</translation>
    </message>
    <message>
        <source>Cannot write %1: %2</source>
        <translation>Impossible d’écrire %1&#xa0;: %2</translation>
    </message>
    <message>
        <source>%1 is out of range</source>
        <translation>%1 dépasse les limites permises</translation>
    </message>
    <message>
        <source>%1 (engine code %2)</source>
        <translation>%1 (code du moteur %2)</translation>
    </message>
    <message>
        <source>%1
Statement: %2</source>
        <translation>%1
Instruction&#xa0;: %2</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nom</translation>
    </message>
    <message>
        <source>Corporate Name</source>
        <translation>Raison sociale</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>Address 2</source>
        <translation>Adresse 2</translation>
    </message>
    <message>
        <source>Address 3</source>
        <translation>Adresse 3</translation>
    </message>
    <message>
        <source>City</source>
        <translation>Ville</translation>
    </message>
    <message>
        <source>Province</source>
        <translation>Province</translation>
    </message>
    <message>
        <source>Postal Code</source>
        <translation>Code postal</translation>
    </message>
    <message>
        <source>Phone</source>
        <translation>Téléphone</translation>
    </message>
    <message>
        <source>Fax</source>
        <translation>Télécopie</translation>
    </message>
    <message>
        <source>Email</source>
        <translation>Courriel</translation>
    </message>
    <message>
        <source>Web Site</source>
        <translation>Site Web</translation>
    </message>
    <message>
        <source>The firm needs a name</source>
        <translation>Le cabinet doit avoir un nom</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no email address</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas une adresse de courriel</translation>
    </message>
    <message>
        <source>it is larger than 16 MiB</source>
        <translation>il dépasse 16&#xa0;Mio</translation>
    </message>
    <message>
        <source>the file does not let itself be read</source>
        <translation>le fichier ne se laisse pas lire</translation>
    </message>
    <message>
        <source>it is no text; save it as RTF or plain text</source>
        <translation>ce n’est pas un texte; enregistrez-le en RTF ou en texte brut</translation>
    </message>
    <message>
        <source>it holds no words</source>
        <translation>il ne contient aucun mot</translation>
    </message>
    <message>
        <source>The message has no text.</source>
        <translation>Le message n’a pas de texte.</translation>
    </message>
</context>
<context>
    <name>autonotify::desktop::CalendarButton</name>
    <message>
        <source>Choose the date in a calendar</source>
        <translation>Choisir la date dans un calendrier</translation>
    </message>
</context>
<context>
    <name>autonotify::desktop::CallDialog</name>
    <message>
        <source>Person to call:</source>
        <translation>Personne à appeler&#xa0;:</translation>
    </message>
    <message>
        <source>Telephone number:</source>
        <translation>Numéro de téléphone&#xa0;:</translation>
    </message>
    <message>
        <source>Available times:</source>
        <translation>Disponibilités&#xa0;:</translation>
    </message>
    <message>
        <source>Call &amp;Made</source>
        <translation>Appel &amp;fait</translation>
    </message>
    <message>
        <source>No &amp;Answer</source>
        <translation>Pas de &amp;réponse</translation>
    </message>
    <message>
        <source>Call Client</source>
        <translation>Appeler le client</translation>
    </message>
    <message>
        <source>Text of the notification</source>
        <translation>Texte de l’avis</translation>
    </message>
    <message>
        <source>A note about the call</source>
        <translation>Une note sur l’appel</translation>
    </message>
    <message>
        <source>Do you want to close this and lose your note?</source>
        <translation>Voulez-vous fermer et perdre votre note?</translation>
    </message>
</context>
<context>
    <name>autonotify::desktop::ClientCardView</name>
    <message>
        <source>Edit Notification</source>
        <translation>Modifier l’avis</translation>
    </message>
    <message>
        <source>History...</source>
        <translation>Historique...</translation>
    </message>
    <message>
        <source>Managing accountant: %1</source>
        <translation>Comptable responsable&#xa0;: %1</translation>
    </message>
    <message>
        <source>none on file</source>
        <translation>aucun au dossier</translation>
    </message>
    <message>
        <source>Email: %1</source>
        <translation>Courriel&#xa0;: %1</translation>
    </message>
    <message>
        <source>Phone: %1</source>
        <translation>Téléphone&#xa0;: %1</translation>
    </message>
</context>
<context>
    <name>autonotify::desktop::ClientsPage</name>
    <message>
        <source>Clients</source>
        <translation>Clients</translation>
    </message>
    <message>
        <source>Notifications of the client</source>
        <translation>Avis du client</translation>
    </message>
    <message numerus="yes">
        <source>%Ln notifications, %L1 of them still to come</source>
        <translation>
            <numerusform>%Ln avis, dont %L1 à venir</numerusform>
            <numerusform>%Ln avis, dont %L1 à venir</numerusform>
        </translation>
    </message>
    <message>
        <source>Choose a client to see all that it was told</source>
        <translation>Choisissez un client pour voir tout ce qui lui a été annoncé</translation>
    </message>
    <message>
        <source>Show &amp;Tasks</source>
        <translation>Afficher les &amp;tâches</translation>
    </message>
    <message>
        <source>Copy &amp;Phone Number</source>
        <translation>Copier le numéro de télé&amp;phone</translation>
    </message>
    <message>
        <source>Copy &amp;Email Address</source>
        <translation>Copier l’adresse de &amp;courriel</translation>
    </message>
    <message>
        <source>No client fits.</source>
        <translation>Aucun client ne correspond.</translation>
    </message>
    <message>
        <source>Copy &amp;Address</source>
        <translation>Copier l’&amp;adresse</translation>
    </message>
    <message>
        <source>Copy Te&amp;xt</source>
        <translation>Copier le te&amp;xte</translation>
    </message>
</context>
<context>
    <name>autonotify::desktop::DayFilter</name>
    <message>
        <source>%1, %L2 found</source>
        <comment>a heading and how many</comment>
        <translation>%1, %L2 trouvés</translation>
    </message>
</context>
<context>
    <name>autonotify::desktop::DayModel</name>
    <message>
        <source>Client</source>
        <translation>Client</translation>
    </message>
    <message>
        <source>Task</source>
        <translation>Tâche</translation>
    </message>
    <message>
        <source>Due</source>
        <translation>Échéance</translation>
    </message>
    <message>
        <source>Notify on</source>
        <translation>Aviser le</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>Mode</translation>
    </message>
    <message>
        <source>State</source>
        <translation>État</translation>
    </message>
    <message>
        <source>Action</source>
        <translation>Action</translation>
    </message>
    <message>
        <source>%1, %L2</source>
        <comment>a heading and how many</comment>
        <translation>%1, %L2</translation>
    </message>
    <message>
        <source>today</source>
        <translation>aujourd’hui</translation>
    </message>
    <message>
        <source>overdue since %1</source>
        <translation>en retard depuis le %1</translation>
    </message>
</context>
<context>
    <name>autonotify::desktop::DayPage</name>
    <message>
        <source>Everyone</source>
        <translation>Tous</translation>
    </message>
    <message>
        <source>Mine</source>
        <translation>Les miens</translation>
    </message>
    <message>
        <source>My clients</source>
        <translation>Mes clients</translation>
    </message>
    <message>
        <source>Today</source>
        <translation>Aujourd’hui</translation>
    </message>
    <message>
        <source>Notifications that wait</source>
        <translation>Avis en attente</translation>
    </message>
    <message>
        <source>Nothing to send today</source>
        <translation>Rien à envoyer aujourd’hui</translation>
    </message>
    <message>
        <source>Week of %1</source>
        <translation>Semaine du %1</translation>
    </message>
    <message>
        <source>Show more</source>
        <translation>Afficher plus</translation>
    </message>
    <message>
        <source>%L1 more wait that are neither shown nor searched here.</source>
        <translation>%L1 autres attendent, ni affichés ni cherchés ici.</translation>
    </message>
</context>
<context>
    <name>autonotify::desktop::FirmDialog</name>
    <message>
        <source>The Firm</source>
        <translation>Le cabinet</translation>
    </message>
    <message>
        <source>%1:</source>
        <translation>%1&#xa0;:</translation>
    </message>
    <message>
        <source>Do you want to close this and lose your changes?</source>
        <translation>Voulez-vous fermer cette fenêtre et perdre vos modifications?</translation>
    </message>
</context>
<context>
    <name>autonotify::desktop::GridOptionsDialog</name>
    <message>
        <source>Grid Options</source>
        <translation>Options de la grille</translation>
    </message>
    <message>
        <source>&amp;Alternate the colours of the rows</source>
        <translation>&amp;Alterner les couleurs des lignes</translation>
    </message>
    <message>
        <source>&amp;Odd rows:</source>
        <translation>Lignes &amp;impaires&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Even rows:</source>
        <translation>Lignes &amp;paires&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Wrap words in the rows</source>
        <translation>Renvoyer &amp;les mots à la ligne</translation>
    </message>
    <message>
        <source>Show a line of &amp;totals</source>
        <translation>Afficher une ligne de &amp;totaux</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Aucune</translation>
    </message>
    <message>
        <source>&amp;Columns that stay in sight, up to:</source>
        <translation>&amp;Colonnes toujours visibles, jusqu’à&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Reset Colours</source>
        <translation>&amp;Rétablir les couleurs</translation>
    </message>
</context>
<context>
    <name>autonotify::desktop::MainWindow</name>
    <message>
        <source>Client Notifications</source>
        <translation>Avis aux clients</translation>
    </message>
    <message>
        <source>No database is open</source>
        <translation>Aucune base de données n’est ouverte</translation>
    </message>
    <message>
        <source>Open your firm&apos;s database to see its tasks.</source>
        <translation>Ouvrez la base de données de votre cabinet pour voir ses tâches.</translation>
    </message>
    <message>
        <source>No open task</source>
        <translation>Aucune tâche ouverte</translation>
    </message>
    <message>
        <source>The firm has nothing left to do.</source>
        <translation>Le cabinet n’a plus rien à faire.</translation>
    </message>
    <message>
        <source>%1 cannot be opened.

%2</source>
        <translation>%1 ne peut pas être ouvert.

%2</translation>
    </message>
    <message>
        <source>%1 - Client Notifications</source>
        <translation>%1 - Avis aux clients</translation>
    </message>
    <message>
        <source>Up to date at %1</source>
        <translation>À jour à %1</translation>
    </message>
    <message>
        <source>%1 has no holidays yet: its dates pass over weekends alone; %2</source>
        <translation>%1 n’a pas encore de jours fériés&#xa0;: ses dates n’évitent que les fins de semaine; %2</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Fichier</translation>
    </message>
    <message>
        <source>&amp;Task</source>
        <translation>&amp;Tâche</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>Afficha&amp;ge</translation>
    </message>
    <message>
        <source>T&amp;ools</source>
        <translation>&amp;Outils</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>Aid&amp;e</translation>
    </message>
    <message>
        <source>&amp;Open Database...</source>
        <translation>&amp;Ouvrir une base de données...</translation>
    </message>
    <message>
        <source>Open Ser&amp;ver...</source>
        <translation>Ouvrir un ser&amp;veur...</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Quitter</translation>
    </message>
    <message>
        <source>Send, Print or &amp;Call</source>
        <translation>Envoyer, imprimer ou appe&amp;ler</translation>
    </message>
    <message>
        <source>Do what the button of the chosen row says</source>
        <translation>Faire ce que dit le bouton de la ligne choisie</translation>
    </message>
    <message>
        <source>&amp;Notify Now...</source>
        <translation>Aviser mai&amp;ntenant...</translation>
    </message>
    <message>
        <source>Choose how the client of the chosen task hears of it now</source>
        <translation>Choisir comment le client de la tâche choisie en est avisé maintenant</translation>
    </message>
    <message>
        <source>Notify &amp;Automatically...</source>
        <translation>Aviser &amp;automatiquement...</translation>
    </message>
    <message>
        <source>Choose how the client hears of the task on its notification date</source>
        <translation>Choisir comment le client est avisé de la tâche à sa date d’avis</translation>
    </message>
    <message>
        <source>Edit Notificat&amp;ion...</source>
        <translation>Modifier l’av&amp;is...</translation>
    </message>
    <message>
        <source>Change the text and the address of the chosen row</source>
        <translation>Modifier le texte et l’adresse de la ligne choisie</translation>
    </message>
    <message>
        <source>&amp;Email Now...</source>
        <translation>&amp;Courriel maintenant...</translation>
    </message>
    <message>
        <source>Write to the client of the chosen task now</source>
        <translation>Écrire maintenant au client de la tâche choisie</translation>
    </message>
    <message>
        <source>&amp;Schedule Email...</source>
        <translation>&amp;Planifier un courriel...</translation>
    </message>
    <message>
        <source>Have the client notified by email on the task&apos;s notification date</source>
        <translation>Aviser le client par courriel à la date d’avis de la tâche</translation>
    </message>
    <message>
        <source>E&amp;dit Email...</source>
        <translation>Mo&amp;difier le courriel...</translation>
    </message>
    <message>
        <source>Change the email that waits for its date</source>
        <translation>Modifier le courriel qui attend sa date</translation>
    </message>
    <message>
        <source>&amp;Call Client...</source>
        <translation>Appele&amp;r le client...</translation>
    </message>
    <message>
        <source>Show the call that waits, and note how it went</source>
        <translation>Afficher l’appel en attente, et noter comment il s’est passé</translation>
    </message>
    <message>
        <source>Blank &amp;Fax...</source>
        <translation>&amp;Télécopie vierge...</translation>
    </message>
    <message>
        <source>Blank &amp;Letter...</source>
        <translation>L&amp;ettre vierge...</translation>
    </message>
    <message>
        <source>Schedule a &amp;Year...</source>
        <translation>Planifier &amp;une année...</translation>
    </message>
    <message>
        <source>Choose how the client of the chosen task hears of all tasks of a year</source>
        <translation>Choisir comment le client de la tâche choisie est avisé de toutes les tâches d’une année</translation>
    </message>
    <message>
        <source>&amp;Notifications...</source>
        <translation>A&amp;vis...</translation>
    </message>
    <message>
        <source>Find, sort and send notifications, those that are due first</source>
        <translation>Rechercher, trier et envoyer des avis, ceux qui sont dus d’abord</translation>
    </message>
    <message>
        <source>&amp;Refresh</source>
        <translation>&amp;Actualiser</translation>
    </message>
    <message>
        <source>&amp;Find</source>
        <translation>&amp;Rechercher</translation>
    </message>
    <message>
        <source>Next &amp;Pane</source>
        <translation>Volet &amp;suivant</translation>
    </message>
    <message>
        <source>&amp;Templates...</source>
        <translation>&amp;Modèles...</translation>
    </message>
    <message>
        <source>Edit the texts that clients are notified with</source>
        <translation>Modifier les textes avec lesquels les clients sont avisés</translation>
    </message>
    <message>
        <source>&amp;Options...</source>
        <translation>&amp;Options...</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>À &amp;propos</translation>
    </message>
    <message>
        <source>Commands</source>
        <translation>Commandes</translation>
    </message>
    <message>
        <source>The database file is no longer in its place: nothing that you do is kept.</source>
        <translation>Le fichier de la base de données n’est plus à sa place&#xa0;: rien de ce que vous faites n’est conservé.</translation>
    </message>
    <message>
        <source>Open Database</source>
        <translation>Ouvrir une base de données</translation>
    </message>
    <message>
        <source>Databases (*.db);;All files (*)</source>
        <translation>Bases de données (*.db);;Tous les fichiers (*)</translation>
    </message>
    <message>
        <source>Open Server</source>
        <translation>Ouvrir un serveur</translation>
    </message>
    <message>
        <source>The address of the database (its password comes from the password file ~/.pgpass):</source>
        <translation>L’adresse de la base de données (son mot de passe vient du fichier de mots de passe ~/.pgpass)&#xa0;:</translation>
    </message>
    <message>
        <source>Sent to %1</source>
        <translation>Envoyé à %1</translation>
    </message>
    <message>
        <source>An email about this task still waits for %1. Do you want to cancel that one?</source>
        <translation>Un courriel sur cette tâche attend encore le %1. Voulez-vous annuler celui-là?</translation>
    </message>
    <message>
        <source>Filed as %1</source>
        <translation>Classé sous %1</translation>
    </message>
    <message>
        <source>No call of this task waits any more.</source>
        <translation>Plus aucun appel de cette tâche n’est en attente.</translation>
    </message>
    <message>
        <source>Another desk is changing the templates. Try again when it is done.</source>
        <translation>Un autre poste modifie les modèles. Réessayez quand il aura terminé.</translation>
    </message>
    <message>
        <source>About Client Notifications</source>
        <translation>À propos d’Avis aux clients</translation>
    </message>
    <message>
        <source>&lt;h3&gt;Client Notifications %1&lt;/h3&gt;&lt;p&gt;The notices that an accounting firm owes its clients: when, in which words, and sent.&lt;/p&gt;</source>
        <translation>&lt;h3&gt;Avis aux clients %1&lt;/h3&gt;&lt;p&gt;Les avis qu’un cabinet comptable doit à ses clients&#xa0;: quand, en quels mots, et envoyés.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>%L1 waiting  ·  %L2 sent today</source>
        <translation>%L1 en attente  ·  envois aujourd’hui&#xa0;: %L2</translation>
    </message>
    <message>
        <source>Find a client or task</source>
        <translation>Trouver client ou tâche</translation>
    </message>
    <message>
        <source>&amp;Go</source>
        <translation>&amp;Aller à</translation>
    </message>
    <message>
        <source>Did you send the email from your mail program?</source>
        <translation>Avez-vous envoyé le courriel depuis votre programme de courriel?</translation>
    </message>
    <message>
        <source>Was the fax sent to %1?</source>
        <translation>La télécopie à %1 a-t-elle été envoyée?</translation>
    </message>
    <message>
        <source>Was the letter to %1 printed?</source>
        <translation>La lettre à %1 a-t-elle été imprimée?</translation>
    </message>
    <message>
        <source>It is marked as sent then.</source>
        <translation>L’avis sera alors marqué comme envoyé.</translation>
    </message>
    <message>
        <source>The call to %1 is settled already.</source>
        <translation>L’appel à %1 est déjà réglé.</translation>
    </message>
    <message>
        <source>This notification is about an item of the diary: change it in the notifications list.</source>
        <translation>Cet avis porte sur un élément de l’agenda&#xa0;: modifiez-le dans la liste des avis.</translation>
    </message>
    <message>
        <source>&amp;Print Worklist...</source>
        <translation>&amp;Imprimer la liste de travail...</translation>
    </message>
    <message>
        <source>Print the letters, faxes and calls that are due as a list</source>
        <translation>Imprimer en liste les lettres, télécopies et appels à faire</translation>
    </message>
    <message>
        <source>No letter, fax or call is due.</source>
        <translation>Aucune lettre, aucune télécopie et aucun appel n’est à faire.</translation>
    </message>
    <message>
        <source>The &amp;Firm...</source>
        <translation>Le ca&amp;binet...</translation>
    </message>
    <message>
        <source>Change the firm&apos;s name, address, telephone and email</source>
        <translation>Modifier le nom, l’adresse, le téléphone et le courriel du cabinet</translation>
    </message>
    <message>
        <source>Write a fax to the client of the chosen row that is about no task</source>
        <translation>Écrire au client de la ligne choisie une télécopie qui ne porte sur aucune tâche</translation>
    </message>
    <message>
        <source>Write a letter to the client of the chosen row that is about no task</source>
        <translation>Écrire au client de la ligne choisie une lettre qui ne porte sur aucune tâche</translation>
    </message>
</context>
<context>
    <name>autonotify::desktop::Navigation</name>
    <message>
        <source>Today</source>
        <translation>Aujourd’hui</translation>
    </message>
    <message>
        <source>Tasks</source>
        <translation>Tâches</translation>
    </message>
    <message>
        <source>Notifications list</source>
        <translation>Liste des avis</translation>
    </message>
    <message>
        <source>Worklists</source>
        <translation>À traiter</translation>
    </message>
    <message>
        <source>Letters</source>
        <translation>Lettres</translation>
    </message>
    <message>
        <source>Faxes</source>
        <translation>Télécopies</translation>
    </message>
    <message>
        <source>Calls</source>
        <translation>Appels</translation>
    </message>
    <message>
        <source>Firm</source>
        <translation>Cabinet</translation>
    </message>
    <message>
        <source>Clients</source>
        <translation>Clients</translation>
    </message>
    <message>
        <source>Templates</source>
        <translation>Modèles</translation>
    </message>
    <message>
        <source>Pages</source>
        <translation>Pages</translation>
    </message>
</context>
<context>
    <name>autonotify::desktop::OptionsDialog</name>
    <message>
        <source>Do you want to close this and lose what you have changed?</source>
        <translation>Voulez-vous fermer cette fenêtre et perdre vos modifications ?</translation>
    </message>
    <message>
        <source>&amp;Confirm each notification that I schedule</source>
        <translation>&amp;Confirmer chaque avis que je planifie</translation>
    </message>
    <message>
        <source>&amp;Ask before a notification is cancelled</source>
        <translation>Demander &amp;avant d’annuler un avis</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>Options</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>Parcourir...</translation>
    </message>
    <message>
        <source>Emails on this machine</source>
        <translation>Courriels sur cet ordinateur</translation>
    </message>
    <message>
        <source>&amp;Leave them in the outbox folder for another mail system</source>
        <translation>Les &amp;laisser dans la boîte d’envoi pour un autre système de courriel</translation>
    </message>
    <message>
        <source>&amp;Open them in this desktop&apos;s mail program</source>
        <translation>Les &amp;ouvrir dans le programme de courriel de ce bureau</translation>
    </message>
    <message>
        <source>&amp;Send them through a mail server</source>
        <translation>Les &amp;envoyer par un serveur de courriel</translation>
    </message>
    <message>
        <source>Ser&amp;ver:</source>
        <translation>Ser&amp;veur&#xa0;:</translation>
    </message>
    <message>
        <source>File with the &amp;password:</source>
        <translation>Fichier du &amp;mot de passe&#xa0;:</translation>
    </message>
    <message>
        <source>File with the password</source>
        <translation>Fichier du mot de passe</translation>
    </message>
    <message>
        <source>Outbox &amp;folder:</source>
        <translation>Dossier de la &amp;boîte d’envoi&#xa0;:</translation>
    </message>
    <message>
        <source>Outbox folder</source>
        <translation>Dossier de la boîte d’envoi</translation>
    </message>
    <message>
        <source>beside the database file</source>
        <translation>à côté de la base de données</translation>
    </message>
    <message>
        <source>Send emails as plain te&amp;xt, without formats</source>
        <translation>Envoyer les courriels en te&amp;xte brut, sans mise en forme</translation>
    </message>
    <message>
        <source>Letters and faxes on this machine</source>
        <translation>Lettres et télécopies sur cet ordinateur</translation>
    </message>
    <message>
        <source>&amp;Documents folder:</source>
        <translation>&amp;Dossier des documents&#xa0;:</translation>
    </message>
    <message>
        <source>Documents folder</source>
        <translation>Dossier des documents</translation>
    </message>
    <message>
        <source>For me</source>
        <translation>Pour moi</translation>
    </message>
</context>
<context>
    <name>autonotify::desktop::PageStrip</name>
    <message>
        <source>Pages</source>
        <translation>Pages</translation>
    </message>
</context>
<context>
    <name>autonotify::desktop::PreviewWindow</name>
    <message>
        <source>Print...</source>
        <translation>Imprimer...</translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation>Zoom arrière</translation>
    </message>
    <message>
        <source>Zoom In</source>
        <translation>Zoom avant</translation>
    </message>
    <message>
        <source>Page Width</source>
        <translation>Largeur de la page</translation>
    </message>
    <message>
        <source>Whole Page</source>
        <translation>Page entière</translation>
    </message>
    <message>
        <source>Previous Page</source>
        <translation>Page précédente</translation>
    </message>
    <message>
        <source>Next Page</source>
        <translation>Page suivante</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>Rechercher</translation>
    </message>
    <message>
        <source>Find Previous</source>
        <translation>Résultat précédent</translation>
    </message>
    <message>
        <source>Find Next</source>
        <translation>Résultat suivant</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Document</source>
        <translation>Document</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>Zoom</translation>
    </message>
    <message>
        <source>%L1 %</source>
        <translation>%L1&#xa0;%</translation>
    </message>
    <message>
        <source> of %L1</source>
        <translation> de %L1</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>Page</translation>
    </message>
    <message>
        <source>Find in the document</source>
        <translation>Chercher un mot</translation>
    </message>
    <message>
        <source>not found</source>
        <translation>introuvable</translation>
    </message>
    <message>
        <source>Page %L1 of %L2</source>
        <translation>Page %L1 de %L2</translation>
    </message>
    <message>
        <source>%L1 of %L2</source>
        <translation>%L1 de %L2</translation>
    </message>
    <message>
        <source>Printing page %L1 of %L2</source>
        <translation>Impression de la page %L1 de %L2</translation>
    </message>
    <message>
        <source>The printing was stopped. Pages that went out before: %L1.</source>
        <translation>L’impression a été arrêtée. Pages déjà parties&#xa0;: %L1.</translation>
    </message>
</context>
<context>
    <name>autonotify::desktop::RichTextEditor</name>
    <message>
        <source>Bold</source>
        <translation>Gras</translation>
    </message>
    <message>
        <source>Italic</source>
        <translation>Italique</translation>
    </message>
    <message>
        <source>Underline</source>
        <translation>Souligné</translation>
    </message>
    <message>
        <source>Font</source>
        <translation>Police</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Taille</translation>
    </message>
    <message>
        <source>Colour</source>
        <translation>Couleur</translation>
    </message>
    <message>
        <source>Align Left</source>
        <translation>Aligner à gauche</translation>
    </message>
    <message>
        <source>Centre</source>
        <translation>Centrer</translation>
    </message>
    <message>
        <source>Align Right</source>
        <translation>Aligner à droite</translation>
    </message>
    <message>
        <source>Bullets</source>
        <translation>Puces</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Rétablir</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Texte</translation>
    </message>
</context>
<context>
    <name>autonotify::desktop::RichTextField</name>
    <message>
        <source>Nothing was inserted. %1 cannot be read: %2.</source>
        <translation>Rien n’a été inséré. %1 ne peut pas être lu&#xa0;: %2.</translation>
    </message>
</context>
<context>
    <name>autonotify::desktop::SortHeader</name>
    <message>
        <source>Headings</source>
        <translation>En-têtes</translation>
    </message>
    <message>
        <source>%1, in ascending order</source>
        <translation>%1, en ordre croissant</translation>
    </message>
    <message>
        <source>%1, in descending order</source>
        <translation>%1, en ordre décroissant</translation>
    </message>
</context>
<context>
    <name>autonotify::desktop::TaskPage</name>
    <message>
        <source>Only those d&amp;ue</source>
        <translation>&amp;Seulement les clients à aviser</translation>
    </message>
    <message>
        <source>Show only the tasks whose clients are to be notified today</source>
        <translation>Afficher seulement les tâches dont les clients sont à aviser aujourd’hui</translation>
    </message>
    <message>
        <source>Open tasks</source>
        <translation>Tâches ouvertes</translation>
    </message>
    <message>
        <source>No open task fits.</source>
        <translation>Aucune tâche ouverte ne correspond.</translation>
    </message>
</context>
<context>
    <name>autonotify::desktop::TaskTableModel</name>
    <message>
        <source>Client</source>
        <translation>Client</translation>
    </message>
    <message>
        <source>Task</source>
        <translation>Tâche</translation>
    </message>
    <message>
        <source>Due</source>
        <translation>Échéance</translation>
    </message>
    <message>
        <source>Notify on</source>
        <translation>Aviser le</translation>
    </message>
    <message>
        <source>Channels</source>
        <translation>Modes</translation>
    </message>
    <message>
        <source>State</source>
        <translation>État</translation>
    </message>
</context>
<context>
    <name>autonotify::desktop::WeeksCard</name>
    <message>
        <source>Weeks ahead</source>
        <translation>Semaines à venir</translation>
    </message>
    <message>
        <source>This week</source>
        <translation>Semaine</translation>
    </message>
    <message>
        <source>12 weeks</source>
        <translation>12 semaines</translation>
    </message>
    <message>
        <source>%L1 in 12 weeks</source>
        <translation>%L1 en 12 semaines</translation>
    </message>
    <message numerus="yes">
        <source>Weeks ahead, %Ln notifications in 12 weeks</source>
        <translation>
            <numerusform>Semaines à venir, %Ln avis en 12 semaines</numerusform>
            <numerusform>Semaines à venir, %Ln avis en 12 semaines</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>autonotify::desktop::WeeksChart</name>
    <message>
        <source>Week of %1: %L2</source>
        <translation>Semaine du %1&#xa0;: %L2</translation>
    </message>
</context>
<context>
    <name>frmAutoNotifyList</name>
    <message>
        <source>Advanced &amp;Search</source>
        <translation>Recherche a&amp;vancée</translation>
    </message>
    <message>
        <source>Choose what the list shows (Ctrl+F)</source>
        <translation>Choisir ce que montre la liste (Ctrl+F)</translation>
    </message>
    <message>
        <source>Col&amp;umns</source>
        <translation>Colo&amp;nnes</translation>
    </message>
    <message>
        <source>Choose the columns</source>
        <translation>Choisir les colonnes</translation>
    </message>
    <message>
        <source>Print Pre&amp;view</source>
        <translation>A&amp;perçu</translation>
    </message>
    <message>
        <source>Look at the list as it is printed</source>
        <translation>Voir la liste telle qu’elle est imprimée</translation>
    </message>
    <message>
        <source>A&amp;ll</source>
        <translation>&amp;Tous</translation>
    </message>
    <message>
        <source>What is due, of everybody</source>
        <translation>Ce qui est dû, pour tout le monde</translation>
    </message>
    <message>
        <source>M&amp;ine</source>
        <translation>Les &amp;miens</translation>
    </message>
    <message>
        <source>What is due, of the items assigned to you</source>
        <translation>Ce qui est dû, parmi les éléments qui vous sont confiés</translation>
    </message>
    <message>
        <source>My &amp;Clients</source>
        <translation>Mes c&amp;lients</translation>
    </message>
    <message>
        <source>What is due, of the clients you account for</source>
        <translation>Ce qui est dû, parmi les clients dont vous êtes le comptable</translation>
    </message>
    <message>
        <source>My Par&amp;tner Clients</source>
        <translation>Comme a&amp;ssocié</translation>
    </message>
    <message>
        <source>What is due, of the clients you are the partner of</source>
        <translation>Ce qui est dû, parmi les clients dont vous êtes l’associé</translation>
    </message>
    <message>
        <source>&amp;Print List</source>
        <translation>&amp;Imprimer la liste</translation>
    </message>
    <message>
        <source>Print the list (Ctrl+P)</source>
        <translation>Imprimer la liste (Ctrl+P)</translation>
    </message>
    <message>
        <source>Notifications</source>
        <translation>Avis</translation>
    </message>
    <message>
        <source>&lt;p&gt;No notifications to show.&lt;/p&gt;&lt;p&gt;Refresh the list (F5), or look for others in &lt;a href=&quot;imgTopBarButton(0)&quot;&gt;Advanced Search&lt;/a&gt;.&lt;/p&gt;</source>
        <translation>&lt;p&gt;Aucun avis à montrer.&lt;/p&gt;&lt;p&gt;Actualisez la liste (F5), ou cherchez-en d’autres avec &lt;a href=&quot;imgTopBarButton(0)&quot;&gt;Recherche avancée&lt;/a&gt;.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>Loading notifications...</source>
        <translation>Chargement des avis...</translation>
    </message>
    <message>
        <source>%v of %m (%p %)</source>
        <translation>%v de %m (%p&#xa0;%)</translation>
    </message>
    <message>
        <source>Loading notifications</source>
        <translation>Chargement des avis</translation>
    </message>
    <message>
        <source>Cell</source>
        <translation>Cellule</translation>
    </message>
    <message>
        <source>Number in the cell</source>
        <translation>Nombre dans la cellule</translation>
    </message>
    <message>
        <source>Date in the cell</source>
        <translation>Date dans la cellule</translation>
    </message>
    <message>
        <source>Employee assigned</source>
        <translation>Employé responsable</translation>
    </message>
    <message>
        <source>Quick search</source>
        <translation>Recherche rapide</translation>
    </message>
    <message>
        <source>Hours</source>
        <translation>Heures</translation>
    </message>
    <message>
        <source>Minutes</source>
        <translation>Minutes</translation>
    </message>
</context>
<context>
    <name>frmAutoNotifySearch</name>
    <message>
        <source>Search criteria</source>
        <translation>Critères de recherche</translation>
    </message>
    <message>
        <source>Client</source>
        <translation>Client</translation>
    </message>
    <message>
        <source>Notification type</source>
        <translation>Type d’avis</translation>
    </message>
    <message>
        <source>Employee assigned</source>
        <translation>Employé responsable</translation>
    </message>
    <message>
        <source>Created by</source>
        <translation>Créé par</translation>
    </message>
    <message>
        <source>Sent by</source>
        <translation>Envoyé par</translation>
    </message>
    <message>
        <source>Notification day</source>
        <translation>Jour d’avis</translation>
    </message>
    <message>
        <source>Calendar: notification day</source>
        <translation>Calendrier&#xa0;: jour d’avis</translation>
    </message>
    <message>
        <source>First notification day</source>
        <translation>Premier jour d’avis</translation>
    </message>
    <message>
        <source>Calendar: first notification day</source>
        <translation>Calendrier&#xa0;: premier jour d’avis</translation>
    </message>
    <message>
        <source>Last notification day</source>
        <translation>Dernier jour d’avis</translation>
    </message>
    <message>
        <source>Calendar: last notification day</source>
        <translation>Calendrier&#xa0;: dernier jour d’avis</translation>
    </message>
    <message>
        <source>Start of the notification days</source>
        <translation>Début des jours d’avis</translation>
    </message>
    <message>
        <source>Calendar: start of the notification days</source>
        <translation>Calendrier&#xa0;: début des jours d’avis</translation>
    </message>
    <message>
        <source>End of the notification days</source>
        <translation>Fin des jours d’avis</translation>
    </message>
    <message>
        <source>Calendar: end of the notification days</source>
        <translation>Calendrier&#xa0;: fin des jours d’avis</translation>
    </message>
    <message>
        <source>Day sent or cancelled</source>
        <translation>Jour d’envoi ou d’annulation</translation>
    </message>
    <message>
        <source>Calendar: day sent or cancelled</source>
        <translation>Calendrier&#xa0;: jour d’envoi ou d’annulation</translation>
    </message>
    <message>
        <source>First day sent or cancelled</source>
        <translation>Premier jour d’envoi ou d’annulation</translation>
    </message>
    <message>
        <source>Calendar: first day sent or cancelled</source>
        <translation>Calendrier&#xa0;: premier jour d’envoi ou d’annulation</translation>
    </message>
    <message>
        <source>Last day sent or cancelled</source>
        <translation>Dernier jour d’envoi ou d’annulation</translation>
    </message>
    <message>
        <source>Calendar: last day sent or cancelled</source>
        <translation>Calendrier&#xa0;: dernier jour d’envoi ou d’annulation</translation>
    </message>
    <message>
        <source>Start of the days sent or cancelled</source>
        <translation>Début des jours d’envoi ou d’annulation</translation>
    </message>
    <message>
        <source>Calendar: start of the days sent or cancelled</source>
        <translation>Calendrier&#xa0;: début des jours d’envoi ou d’annulation</translation>
    </message>
    <message>
        <source>End of the days sent or cancelled</source>
        <translation>Fin des jours d’envoi ou d’annulation</translation>
    </message>
    <message>
        <source>Calendar: end of the days sent or cancelled</source>
        <translation>Calendrier&#xa0;: fin des jours d’envoi ou d’annulation</translation>
    </message>
    <message>
        <source>Managing accountant</source>
        <translation>Comptable responsable</translation>
    </message>
    <message>
        <source>Supervising partner</source>
        <translation>Associé superviseur</translation>
    </message>
</context>
<context>
    <name>frmSendNotificationWizard</name>
    <message>
        <source>Edit notification, email</source>
        <translation>Modifier l’avis, courriel</translation>
    </message>
    <message>
        <source>Edit notification, fax</source>
        <translation>Modifier l’avis, télécopie</translation>
    </message>
    <message>
        <source>Edit notification, letter</source>
        <translation>Modifier l’avis, lettre</translation>
    </message>
    <message>
        <source>Edit notification, phone call</source>
        <translation>Modifier l’avis, appel</translation>
    </message>
    <message>
        <source>A tick opens the message and sets it up. Clearing a tick cancels it.</source>
        <translation>Cocher ouvre le message et le prépare. Décocher l’annule.</translation>
    </message>
</context>
<context>
    <name>frmSendNotificationWizardEmail</name>
    <message>
        <source>Calendar of the notification date</source>
        <translation>Calendrier de la date d’avis</translation>
    </message>
</context>
<context>
    <name>frmSendNotificationWizardFax</name>
    <message>
        <source>Calendar of the notification date</source>
        <translation>Calendrier de la date d’avis</translation>
    </message>
</context>
<context>
    <name>frmSendNotificationWizardLetter</name>
    <message>
        <source>Calendar of the notification date</source>
        <translation>Calendrier de la date d’avis</translation>
    </message>
</context>
<context>
    <name>frmSendNotificationWizardPhone</name>
    <message>
        <source>Calendar of the notification date</source>
        <translation>Calendrier de la date d’avis</translation>
    </message>
</context>
<context>
    <name>frmTaskAutoNotification</name>
    <message>
        <source>Schedule types</source>
        <translation>Types de tâche</translation>
    </message>
    <message>
        <source>Merge fields</source>
        <translation>Champs de fusion</translation>
    </message>
    <message>
        <source>Find a field (Ctrl+F)</source>
        <translation>Trouver un champ (Ctrl+F)</translation>
    </message>
    <message>
        <source>Find a field</source>
        <translation>Trouver un champ</translation>
    </message>
</context>
</TS>
