<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name></name>
    <message id="100">
        <source>Pelorin</source>
        <translation>Pelorin</translation>
    </message>
    <message id="101">
        <source>Port %1 could not be opened (system error %2).</source>
        <extracomment>%1 port, %2 system error code</extracomment>
        <translation>Le port %1 n'a pas pu être ouvert (erreur système %2).</translation>
    </message>
    <message id="102">
        <source>The line settings of port %1 could not be set (system error %2).</source>
        <extracomment>%1 port, %2 system error code</extracomment>
        <translation>Les paramètres de transmission du port %1 n'ont pas pu être réglés (erreur système %2).</translation>
    </message>
    <message id="103">
        <source>The time-outs of port %1 could not be set (system error %2).</source>
        <extracomment>%1 port, %2 system error code</extracomment>
        <translation>Les délais d'attente du port %1 n'ont pas pu être réglés (erreur système %2).</translation>
    </message>
    <message id="104">
        <source>The queue sizes of port %1 could not be set (system error %2).</source>
        <extracomment>%1 port, %2 system error code</extracomment>
        <translation>La taille des tampons du port %1 n'a pas pu être réglée (erreur système %2).</translation>
    </message>
    <message id="105">
        <source>The communication could not be started (system error %1).</source>
        <extracomment>%1 system error code</extracomment>
        <translation>La communication n'a pas pu être démarrée (erreur système %1).</translation>
    </message>
    <message id="106">
        <source>E&amp;xit</source>
        <extracomment>Item on the menu bar</extracomment>
        <translation>&amp;Quitter</translation>
    </message>
    <message id="107">
        <source>Select Communications Port</source>
        <extracomment>Menu item and dialog title, so without a mnemonic</extracomment>
        <translation>Choisir le port de communication</translation>
    </message>
    <message id="108">
        <source>&amp;Connection</source>
        <extracomment>Menu</extracomment>
        <translation>&amp;Connexion</translation>
    </message>
    <message id="109">
        <source>&amp;Connect</source>
        <extracomment>Menu item</extracomment>
        <translation>&amp;Connecter</translation>
    </message>
    <message id="110">
        <source>Sensor Information</source>
        <extracomment>Page</extracomment>
        <translation>Informations capteur</translation>
    </message>
    <message id="111">
        <source>Parameter</source>
        <extracomment>Column heading</extracomment>
        <translation>Paramètre</translation>
    </message>
    <message id="112">
        <source>Value</source>
        <extracomment>Column heading</extracomment>
        <translation>Valeur</translation>
    </message>
    <message id="113">
        <source>Unit</source>
        <extracomment>Column heading</extracomment>
        <translation>Unité</translation>
    </message>
    <message id="114">
        <source>COM%1</source>
        <extracomment>%1 port number</extracomment>
        <translation>COM%1</translation>
    </message>
    <message id="115">
        <source>No port</source>
        <extracomment>Status bar, in place of the port</extracomment>
        <translation>Aucun port</translation>
    </message>
    <message id="116">
        <source>Connecting to the sensor…</source>
        <extracomment>Status bar</extracomment>
        <translation>Connexion au capteur…</translation>
    </message>
    <message id="117">
        <source>Connected to the sensor.</source>
        <extracomment>Status bar</extracomment>
        <translation>Connecté au capteur.</translation>
    </message>
    <message id="118">
        <source>Not connected to the sensor.</source>
        <extracomment>Status bar</extracomment>
        <translation>Non connecté au capteur.</translation>
    </message>
    <message id="119">
        <source>Pelorin</source>
        <extracomment>Title of the main window</extracomment>
        <translation>Pelorin</translation>
    </message>
    <message id="120">
        <source>Cancel</source>
        <extracomment>Button</extracomment>
        <translation>Annuler</translation>
    </message>
    <message id="121">
        <source>Reading the sensor's parameters…</source>
        <extracomment>Status bar</extracomment>
        <translation>Lecture des paramètres du capteur…</translation>
    </message>
    <message id="122">
        <source>Data Format</source>
        <extracomment>Group and table row</extracomment>
        <translation>Format de données</translation>
    </message>
    <message id="123">
        <source>Parameter %1 could not be read from the sensor.</source>
        <extracomment>%1 byte value of the parameter's identifier</extracomment>
        <translation>Le paramètre %1 n'a pas pu être lu dans le capteur.</translation>
    </message>
    <message id="124">
        <source>%1 bits, Gray code</source>
        <extracomment>%1 number of data bits</extracomment>
        <translation>%1 bits, code Gray</translation>
    </message>
    <message id="125">
        <source>%1 bits, binary</source>
        <extracomment>%1 number of data bits</extracomment>
        <translation>%1 bits, binaire</translation>
    </message>
    <message id="126">
        <source>Ready.</source>
        <extracomment>Status bar, after reading or writing</extracomment>
        <translation>Prêt.</translation>
    </message>
    <message id="127">
        <source>Measurement Mode</source>
        <extracomment>Caption, group and table row</extracomment>
        <translation>Mode de mesure</translation>
    </message>
    <message id="128">
        <source>Reverse</source>
        <extracomment>Direction of measurement</extracomment>
        <translation>Inverse</translation>
    </message>
    <message id="129">
        <source>Forward</source>
        <extracomment>Direction of measurement</extracomment>
        <translation>Direct</translation>
    </message>
    <message id="130">
        <source>Synchronous</source>
        <extracomment>Measurement mode</extracomment>
        <translation>Synchrone</translation>
    </message>
    <message id="131">
        <source>Position stream</source>
        <extracomment>Measurement mode, while the sensor streams positions</extracomment>
        <translation>Sortie continue de position</translation>
    </message>
    <message id="132">
        <source>Asynchronous</source>
        <extracomment>Measurement mode</extracomment>
        <translation>Asynchrone</translation>
    </message>
    <message id="133">
        <source>Multiplier</source>
        <extracomment>Table row</extracomment>
        <translation>Multiplicateur</translation>
    </message>
    <message id="134">
        <source>× 8</source>
        <extracomment>Multiplier</extracomment>
        <translation>× 8</translation>
    </message>
    <message id="135">
        <source>× 2</source>
        <extracomment>Multiplier</extracomment>
        <translation>× 2</translation>
    </message>
    <message id="136">
        <source>× 4</source>
        <extracomment>Multiplier</extracomment>
        <translation>× 4</translation>
    </message>
    <message id="137">
        <source>× 1</source>
        <extracomment>Multiplier</extracomment>
        <translation>× 1</translation>
    </message>
    <message id="138">
        <source>Factory Text</source>
        <extracomment>Table row, parameter F</extracomment>
        <translation>Texte d'usine</translation>
    </message>
    <message id="139">
        <source>Firmware Version</source>
        <extracomment>Table row, parameter V</extracomment>
        <translation>Version du firmware</translation>
    </message>
    <message id="140">
        <source>Resolution</source>
        <extracomment>Caption and table row</extracomment>
        <translation>Résolution</translation>
    </message>
    <message id="141">
        <source>mm</source>
        <extracomment>Unit</extracomment>
        <translation>mm</translation>
    </message>
    <message id="142">
        <source>Stroke Length</source>
        <extracomment>Caption and table row</extracomment>
        <translation>Course de mesure</translation>
    </message>
    <message id="143">
        <source>Gradient</source>
        <extracomment>Table row, parameter U: speed of the pulse in the waveguide</extracomment>
        <translation>Gradient</translation>
    </message>
    <message id="144">
        <source>m/s (µs/in)</source>
        <extracomment>Unit of the pulse velocity, in parentheses that of its reciprocal</extracomment>
        <translation>m/s (µs/in)</translation>
    </message>
    <message id="145">
        <source>Scale Factor</source>
        <extracomment>Table row, parameter S</extracomment>
        <translation>Facteur d'échelle</translation>
    </message>
    <message id="146">
        <source>hex</source>
        <extracomment>Unit of a value shown in hexadecimal digits</extracomment>
        <translation>hex</translation>
    </message>
    <message id="147">
        <source>Factory Text P</source>
        <extracomment>Table row, parameter P</extracomment>
        <translation>Texte d'usine P</translation>
    </message>
    <message id="148">
        <source>Cycle Code Z</source>
        <extracomment>Table row, parameter Z</extracomment>
        <translation>Code de cycle Z</translation>
    </message>
    <message id="149">
        <source>Offset</source>
        <extracomment>Table row, parameter N</extracomment>
        <translation>Décalage</translation>
    </message>
    <message id="150">
        <source>Cycle Code M</source>
        <extracomment>Table row, parameter M</extracomment>
        <translation>Code de cycle M</translation>
    </message>
    <message id="151">
        <source>Factory Value J</source>
        <extracomment>Table row, parameter J</extracomment>
        <translation>Valeur d'usine J</translation>
    </message>
    <message id="152">
        <source>Not applicable</source>
        <extracomment>In place of a value that this type of sensor does not have</extracomment>
        <translation>Sans objet</translation>
    </message>
    <message id="153">
        <source>Advanced Measurement Setup</source>
        <extracomment>Group and table row, parameter K</extracomment>
        <translation>Configuration de mesure avancée</translation>
    </message>
    <message id="154">
        <source>Factory Value O</source>
        <extracomment>Table row, parameter O</extracomment>
        <translation>Valeur d'usine O</translation>
    </message>
    <message id="155">
        <source>1 Magnet</source>
        <extracomment>Option and table cell</extracomment>
        <translation>1 aimant</translation>
    </message>
    <message id="156">
        <source>2 Magnets</source>
        <extracomment>Option and table cell</extracomment>
        <translation>2 aimants</translation>
    </message>
    <message id="157">
        <source>Normal Position Output</source>
        <extracomment>Option and table cell</extracomment>
        <translation>Sortie de position normale</translation>
    </message>
    <message id="158">
        <source>Differential Position</source>
        <extracomment>Option and table cell</extracomment>
        <translation>Différence de position</translation>
    </message>
    <message id="159">
        <source>Velocity</source>
        <extracomment>Option and table cell</extracomment>
        <translation>Vitesse</translation>
    </message>
    <message id="160">
        <source>Unknown number of magnets</source>
        <extracomment>Table cell</extracomment>
        <translation>Nombre d'aimants inconnu</translation>
    </message>
    <message id="161">
        <source>Unknown output</source>
        <extracomment>Table cell</extracomment>
        <translation>Sortie inconnue</translation>
    </message>
    <message id="162">
        <source>No Extension</source>
        <extracomment>Option and table cell</extracomment>
        <translation>Sans extension</translation>
    </message>
    <message id="163">
        <source>Parity</source>
        <extracomment>Option and table cell</extracomment>
        <translation>Parité</translation>
    </message>
    <message id="164">
        <source>Temperature</source>
        <extracomment>Option and table cell</extracomment>
        <translation>Température</translation>
    </message>
    <message id="165">
        <source>Unknown extension</source>
        <extracomment>Table cell</extracomment>
        <translation>Extension inconnue</translation>
    </message>
    <message id="166">
        <source>Refresh</source>
        <extracomment>Button</extracomment>
        <translation>Actualiser</translation>
    </message>
    <message id="167">
        <source>COM%1 could not be opened.

Abort ends the program, Retry tries the same port again, Ignore lets you select another port.</source>
        <extracomment>%1 port number; names the buttons Abort, Retry and Ignore as the toolkit translates them</extracomment>
        <translation>COM%1 n'a pas pu être ouvert.

« Abandonner » quitte le programme, « Réessayer » essaie le même port, « Ignorer » permet de choisir un autre port.</translation>
    </message>
    <message id="168">
        <source>Output Setup</source>
        <extracomment>Page</extracomment>
        <translation>Réglage de la sortie</translation>
    </message>
    <message id="169">
        <source>Data Bits</source>
        <extracomment>Caption</extracomment>
        <translation>Bits de données</translation>
    </message>
    <message id="170">
        <source>Parameter %1 could not be written to the sensor.</source>
        <extracomment>%1 byte value of the parameter's identifier</extracomment>
        <translation>Le paramètre %1 n'a pas pu être écrit dans le capteur.</translation>
    </message>
    <message id="171">
        <source>Binary</source>
        <extracomment>Output format</extracomment>
        <translation>Binaire</translation>
    </message>
    <message id="172">
        <source>Gray code</source>
        <extracomment>Output format</extracomment>
        <translation>Code Gray</translation>
    </message>
    <message id="173">
        <source>Format</source>
        <extracomment>Caption</extracomment>
        <translation>Format</translation>
    </message>
    <message id="174">
        <source>Measurement Direction</source>
        <extracomment>Caption</extracomment>
        <translation>Sens de mesure</translation>
    </message>
    <message id="175">
        <source>mm</source>
        <extracomment>Unit of the resolution</extracomment>
        <translation>mm</translation>
    </message>
    <message id="176">
        <source>Error Skip Count</source>
        <extracomment>Caption and table row</extracomment>
        <translation>Erreurs ignorées</translation>
    </message>
    <message id="177">
        <source>Number of Magnets</source>
        <extracomment>Group</extracomment>
        <translation>Nombre d'aimants</translation>
    </message>
    <message id="178">
        <source>Extension</source>
        <extracomment>Group</extracomment>
        <translation>Extension</translation>
    </message>
    <message id="179">
        <source>Unlock</source>
        <extracomment>Button</extracomment>
        <translation>Déverrouiller</translation>
    </message>
    <message id="180">
        <source>Apply Changes</source>
        <extracomment>Button</extracomment>
        <translation>Appliquer les modifications</translation>
    </message>
    <message id="181">
        <source>A value is missing. Please complete it first.</source>
        <extracomment>Message, with the incomplete field focused</extracomment>
        <translation>Il manque une valeur. Veuillez d'abord la renseigner.</translation>
    </message>
    <message id="182">
        <source>This type of sensor does not offer a resolution finer than 0.010 mm.</source>
        <extracomment>Message</extracomment>
        <translation>Ce type de capteur n'offre pas de résolution plus fine que 0.010 mm.</translation>
    </message>
    <message id="183">
        <source>This type of sensor has no synchronous measurement mode.</source>
        <extracomment>Message</extracomment>
        <translation>Ce type de capteur n'a pas de mode de mesure synchrone.</translation>
    </message>
    <message id="184">
        <source>The measurement direction changes, and the offset with it. Select the sensor package or enter the sensor's dimensions; the new offset is calculated from them.</source>
        <extracomment>Note in a dialog</extracomment>
        <translation>Le sens de mesure change, et le décalage avec lui. Choisissez le modèle de capteur ou saisissez ses dimensions ; elles servent à calculer le nouveau décalage.</translation>
    </message>
    <message id="185">
        <source>Calculate Offset</source>
        <extracomment>Dialog title</extracomment>
        <translation>Calculer le décalage</translation>
    </message>
    <message id="186">
        <source>SE Distance</source>
        <extracomment>Caption</extracomment>
        <translation>Distance SE</translation>
    </message>
    <message id="187">
        <source>Dead Zone</source>
        <extracomment>Caption</extracomment>
        <translation>Zone morte</translation>
    </message>
    <message id="188">
        <source>Communications Log</source>
        <extracomment>Page</extracomment>
        <translation>Journal de communication</translation>
    </message>
    <message id="189">
        <source>Clear</source>
        <extracomment>Button</extracomment>
        <translation>Vider</translation>
    </message>
    <message id="190">
        <source>Save To Disk</source>
        <extracomment>Button</extracomment>
        <translation>Enregistrer</translation>
    </message>
    <message id="191">
        <source>Text files (*.txt);;All files (*)</source>
        <extracomment>File filter</extracomment>
        <translation>Fichiers texte (*.txt);;Tous les fichiers (*)</translation>
    </message>
    <message id="192">
        <source>The file %1 could not be opened (system error %2: %3).</source>
        <extracomment>%1 path, %2 system error code, %3 its words</extracomment>
        <translation>Le fichier %1 n'a pas pu être ouvert (erreur système %2 : %3).</translation>
    </message>
    <message id="193">
        <source>&amp;Refresh</source>
        <extracomment>Menu item</extracomment>
        <translation>&amp;Actualiser</translation>
    </message>
    <message id="194">
        <source>&amp;View</source>
        <extracomment>Menu</extracomment>
        <translation>&amp;Affichage</translation>
    </message>
    <message id="195">
        <source>&amp;Save Backup…</source>
        <extracomment>Menu item</extracomment>
        <translation>Enre&amp;gistrer une sauvegarde…</translation>
    </message>
    <message id="196">
        <source>&amp;Restore Backup…</source>
        <extracomment>Menu item</extracomment>
        <translation>&amp;Restaurer une sauvegarde…</translation>
    </message>
    <message id="197">
        <source>Send Command &amp;E</source>
        <extracomment>Menu item</extracomment>
        <translation>Envoyer la commande &amp;E</translation>
    </message>
    <message id="198">
        <source>Send Command &amp;Q</source>
        <extracomment>Menu item</extracomment>
        <translation>Envoyer la commande &amp;Q</translation>
    </message>
    <message id="200">
        <source>&amp;Sensor</source>
        <extracomment>Menu</extracomment>
        <translation>Ca&amp;pteur</translation>
    </message>
    <message id="201">
        <source>&amp;Help</source>
        <extracomment>Menu item</extracomment>
        <translation>&amp;Aide</translation>
    </message>
    <message id="202">
        <source>&amp;About…</source>
        <extracomment>Menu item</extracomment>
        <translation>À &amp;propos…</translation>
    </message>
    <message id="203">
        <source>&amp;Help</source>
        <extracomment>Menu</extracomment>
        <translation>Ai&amp;de</translation>
    </message>
    <message id="204">
        <source>&amp;English</source>
        <extracomment>Menu item, each language in its own words</extracomment>
        <translation>&amp;English</translation>
    </message>
    <message id="205">
        <source>&amp;Deutsch</source>
        <extracomment>Menu item, each language in its own words</extracomment>
        <translation>&amp;Deutsch</translation>
    </message>
    <message id="206">
        <source>&amp;Français</source>
        <extracomment>Menu item, each language in its own words</extracomment>
        <translation>&amp;Français</translation>
    </message>
    <message id="207">
        <source>E&amp;spañol</source>
        <extracomment>Menu item, each language in its own words</extracomment>
        <translation>E&amp;spañol</translation>
    </message>
    <message id="208">
        <source>&amp;Italiano</source>
        <extracomment>Menu item, each language in its own words</extracomment>
        <translation>&amp;Italiano</translation>
    </message>
    <message id="209">
        <source>&amp;Language</source>
        <extracomment>Menu</extracomment>
        <translation>&amp;Langue</translation>
    </message>
    <message id="210">
        <source>Saving the sensor's parameters…</source>
        <extracomment>Progress dialog</extracomment>
        <translation>Sauvegarde des paramètres du capteur…</translation>
    </message>
    <message id="211">
        <source>Restoring the sensor's parameters…</source>
        <extracomment>Progress dialog</extracomment>
        <translation>Restauration des paramètres du capteur…</translation>
    </message>
    <message id="212">
        <source>Backup files (*.dat);;All files (*)</source>
        <extracomment>File filter</extracomment>
        <translation>Fichiers de sauvegarde (*.dat);;Tous les fichiers (*)</translation>
    </message>
    <message id="213">
        <source>This is not a backup file of Pelorin.</source>
        <extracomment>Message</extracomment>
        <translation>Ce n'est pas un fichier de sauvegarde de Pelorin.</translation>
    </message>
    <message id="214">
        <source>Factory Parameters</source>
        <extracomment>Page</extracomment>
        <translation>Paramètres d'usine</translation>
    </message>
    <message id="215">
        <source>Sensor Package</source>
        <extracomment>Caption and table row</extracomment>
        <translation>Modèle de capteur</translation>
    </message>
    <message id="216">
        <source>Cycle Code M, Suffix</source>
        <extracomment>Table row, last two digits of parameter M</extracomment>
        <translation>Code de cycle M, suffixe</translation>
    </message>
    <message id="217">
        <source>Writing to the sensor…</source>
        <extracomment>Status bar</extracomment>
        <translation>Écriture dans le capteur…</translation>
    </message>
    <message id="218">
        <source>About Pelorin</source>
        <extracomment>Dialog title</extracomment>
        <translation>À propos de Pelorin</translation>
    </message>
    <message id="219">
        <source>0, 2, 4, 8</source>
        <extracomment>In place of a unit: the values that the multiplier may have</extracomment>
        <translation>0, 2, 4, 8</translation>
    </message>
    <message id="228">
        <source>Enter Password</source>
        <extracomment>Dialog title</extracomment>
        <translation>Saisir le mot de passe</translation>
    </message>
    <message id="235">
        <source>The password is wrong.</source>
        <extracomment>Message</extracomment>
        <translation>Le mot de passe est incorrect.</translation>
    </message>
    <message id="238">
        <source>No help files are configured. The program starts without help.</source>
        <extracomment>Message</extracomment>
        <translation>Aucun fichier d'aide n'est configuré. Le programme démarre sans aide.</translation>
    </message>
    <message id="239">
        <source>The help could not be shown (language %1, error %2, detail %3).</source>
        <extracomment>%1 language code, %2 error code, %3 detail</extracomment>
        <translation>L'aide n'a pas pu être affichée (langue %1, erreur %2, détail %3).</translation>
    </message>
    <message id="240">
        <source>Changing the error skip count is protected. Enter the password to unlock it.</source>
        <extracomment>Note in a dialog</extracomment>
        <translation>Le nombre d'erreurs ignorées est protégé. Saisissez le mot de passe pour le déverrouiller.</translation>
    </message>
    <message id="241">
        <source>OK</source>
        <extracomment>Button</extracomment>
        <translation>OK</translation>
    </message>
    <message id="242">
        <source>The synchronous measurement mode cannot be combined with the reverse direction.</source>
        <extracomment>Message</extracomment>
        <translation>Le mode de mesure synchrone ne peut pas être combiné avec le sens inverse.</translation>
    </message>
    <message id="243">
        <source>This value must be 0, 1 or 2.</source>
        <extracomment>Message</extracomment>
        <translation>Cette valeur doit être 0, 1 ou 2.</translation>
    </message>
    <message id="244">
        <source>Switch the sensor's supply on now, then choose OK.</source>
        <extracomment>Message while the program calls the sensor</extracomment>
        <translation>Mettez maintenant le capteur sous tension, puis choisissez « OK ».</translation>
    </message>
    <message id="245">
        <source>Switch the sensor's supply off, then choose OK. Choose Cancel if the sensor is ready for programming already.</source>
        <extracomment>Message with OK and Cancel</extracomment>
        <translation>Coupez l'alimentation du capteur, puis choisissez « OK ». Choisissez « Annuler » si le capteur est déjà prêt à être programmé.</translation>
    </message>
    <message id="246">
        <source>QDL3 Display Unit</source>
        <extracomment>Menu item and window title, so without a mnemonic</extracomment>
        <translation>Afficheur QDL3</translation>
    </message>
    <message id="247">
        <source>The display unit on %1 (node %2) did not acknowledge its set-up.</source>
        <extracomment>%1 port, %2 node</extracomment>
        <translation>L'afficheur sur %1 (nœud %2) n'a pas acquitté sa configuration.</translation>
    </message>
    <message id="248">
        <source>Send</source>
        <extracomment>Caption</extracomment>
        <translation>Envoi</translation>
    </message>
    <message id="249">
        <source>Receive</source>
        <extracomment>Caption</extracomment>
        <translation>Réception</translation>
    </message>
    <message id="250">
        <source>Execute</source>
        <extracomment>Button</extracomment>
        <translation>Exécuter</translation>
    </message>
    <message id="251">
        <source>Manual Communications</source>
        <extracomment>Menu item and dialog title, so without a mnemonic</extracomment>
        <translation>Communication manuelle</translation>
    </message>
    <message id="252">
        <source>Tables</source>
        <extracomment>Tab</extracomment>
        <translation>Tables</translation>
    </message>
    <message id="253">
        <source>Temperature Compensation</source>
        <extracomment>Page</extracomment>
        <translation>Compensation de température</translation>
    </message>
    <message id="254">
        <source>Row</source>
        <extracomment>Column heading</extracomment>
        <translation>Ligne</translation>
    </message>
    <message id="255">
        <source>Point</source>
        <extracomment>Column heading</extracomment>
        <translation>Point</translation>
    </message>
    <message id="256">
        <source>Value</source>
        <extracomment>Column heading</extracomment>
        <translation>Valeur</translation>
    </message>
    <message id="257">
        <source>Lookup tables (*.csv);;All files (*)</source>
        <extracomment>File filter</extracomment>
        <translation>Tables de correspondance (*.csv);;Tous les fichiers (*)</translation>
    </message>
    <message id="258">
        <source>This is not a lookup table for temperature compensation.</source>
        <extracomment>Message</extracomment>
        <translation>Ce n'est pas une table de correspondance pour la compensation de température.</translation>
    </message>
    <message id="259">
        <source>Row</source>
        <extracomment>Column heading</extracomment>
        <translation>Ligne</translation>
    </message>
    <message id="260">
        <source>Value %1</source>
        <extracomment>Column heading, %1 number</extracomment>
        <translation>Valeur %1</translation>
    </message>
    <message id="261">
        <source>Magnet Position</source>
        <extracomment>Page</extracomment>
        <translation>Position de l'aimant</translation>
    </message>
    <message id="262">
        <source>Magnet position in mm</source>
        <extracomment>Caption</extracomment>
        <translation>Position de l'aimant en mm</translation>
    </message>
    <message id="263">
        <source>While this page is shown, the sensor streams its position over the programming line. Its output settings are changed for that and written back when you leave the page. Do not disconnect the sensor before then.</source>
        <extracomment>Note on a page</extracomment>
        <translation>Tant que cette page est affichée, le capteur transmet sa position sur la ligne de programmation. Ses réglages de sortie sont modifiés pour cela et rétablis quand vous quittez la page. Ne déconnectez pas le capteur avant d'avoir quitté la page.</translation>
    </message>
    <message id="264">
        <source>The parity extension changes the SSI word that the sensor sends; the controller must be set up for it. Use the parity extension?</source>
        <extracomment>Question</extracomment>
        <translation>L'extension de parité modifie le mot SSI envoyé par le capteur ; l'automate doit être réglé en conséquence. Utiliser l'extension de parité ?</translation>
    </message>
    <message id="265">
        <source>In the synchronous measurement mode the controller must clock the sensor regularly. Use the synchronous measurement mode?</source>
        <extracomment>Question</extracomment>
        <translation>En mode de mesure synchrone, l'automate doit envoyer régulièrement le signal d'horloge au capteur. Utiliser le mode de mesure synchrone ?</translation>
    </message>
    <message id="1000">
        <source>simulated</source>
        <extracomment>Stands beside the name of a simulated port</extracomment>
        <translation>simulé</translation>
    </message>
    <message id="1001">
        <source>You have no permission to open %1. Add your user to the group %2, then log in again.</source>
        <extracomment>%1 port, %2 group of users</extracomment>
        <translation>Vous n'avez pas l'autorisation d'ouvrir %1. Ajoutez votre utilisateur au groupe %2, puis fermez la session et rouvrez-la.</translation>
    </message>
    <message id="1002">
        <source>%1 is in use by another program.</source>
        <extracomment>%1 port</extracomment>
        <translation>%1 est utilisé par un autre programme.</translation>
    </message>
    <message id="1003">
        <source>The settings file %1 is damaged in line %2. None of its settings are used.</source>
        <extracomment>%1 path, %2 line number</extracomment>
        <translation>Le fichier de réglages %1 est endommagé à la ligne %2. Aucun de ses réglages n'est utilisé.</translation>
    </message>
    <message id="1004">
        <source>The profile %1 is damaged. Default values are used; a copy is kept beside it.</source>
        <extracomment>%1 path</extracomment>
        <translation>Le profil %1 est endommagé. Les valeurs par défaut sont utilisées ; une copie est conservée à côté.</translation>
    </message>
    <message id="1005">
        <source>The sensor answered, but no firmware revision bounds are configured. Enter your site's bounds in the settings.</source>
        <extracomment>Tool tip</extracomment>
        <translation>Le capteur a répondu, mais aucune limite de révision du firmware n'est configurée. Saisissez les limites de votre site dans les réglages.</translation>
    </message>
    <message id="1006">
        <source>Green: connected</source>
        <extracomment>State of the link light</extracomment>
        <translation>Vert : connecté</translation>
    </message>
    <message id="1007">
        <source>Red, blinking: not connected</source>
        <extracomment>State of the link light</extracomment>
        <translation>Rouge clignotant : non connecté</translation>
    </message>
    <message id="1008">
        <source>Gray: no exchange yet</source>
        <extracomment>State of the link light</extracomment>
        <translation>Gris : aucun échange pour l'instant</translation>
    </message>
    <message id="1009">
        <source>Pages</source>
        <extracomment>Accessible name of the page list</extracomment>
        <translation>Pages</translation>
    </message>
    <message id="1010">
        <source>Port:</source>
        <extracomment>Caption of the list of ports</extracomment>
        <translation>Port :</translation>
    </message>
    <message id="1012">
        <source>Operation abandoned: the connection to the sensor was lost.</source>
        <extracomment>Message</extracomment>
        <translation>Opération abandonnée : la connexion au capteur a été perdue.</translation>
    </message>
    <message id="1013">
        <source>The sensor is not identified. Nothing was written.</source>
        <extracomment>Message</extracomment>
        <translation>Le capteur n'est pas identifié. Rien n'a été écrit.</translation>
    </message>
    <message id="1014">
        <source>Pelorin Help</source>
        <extracomment>Window title</extracomment>
        <translation>Aide de Pelorin</translation>
    </message>
    <message id="1015">
        <source>Link light</source>
        <extracomment>Accessible name</extracomment>
        <translation>Voyant de connexion</translation>
    </message>
    <message id="1016">
        <source>Program icon</source>
        <extracomment>Accessible name</extracomment>
        <translation>Icône du programme</translation>
    </message>
    <message id="1017">
        <source>Version:</source>
        <extracomment>Caption</extracomment>
        <translation>Version :</translation>
    </message>
    <message id="1018">
        <source>Program:</source>
        <extracomment>Caption</extracomment>
        <translation>Programme :</translation>
    </message>
    <message id="1019">
        <source>No serial port is present. Plug the adapter in.</source>
        <translation>Aucun port série n'est présent. Branchez l'adaptateur.</translation>
    </message>
    <message id="1020">
        <source>Sensor values</source>
        <extracomment>Accessible name of the table of values</extracomment>
        <translation>Valeurs du capteur</translation>
    </message>
    <message id="1021">
        <source>Enable Compensation</source>
        <extracomment>Check box</extracomment>
        <translation>Activer la compensation</translation>
    </message>
    <message id="1022">
        <source>Lookup Table Arrays</source>
        <extracomment>Caption</extracomment>
        <translation>Table de correspondance</translation>
    </message>
    <message id="1023">
        <source>Compensation Array</source>
        <extracomment>Caption</extracomment>
        <translation>Table de compensation</translation>
    </message>
    <message id="1024">
        <source>Write To Sensor</source>
        <extracomment>Button</extracomment>
        <translation>Écrire dans le capteur</translation>
    </message>
    <message id="1025">
        <source>Write To File</source>
        <extracomment>Button</extracomment>
        <translation>Écrire dans un fichier</translation>
    </message>
    <message id="1026">
        <source>Read From File</source>
        <extracomment>Button</extracomment>
        <translation>Lire depuis un fichier</translation>
    </message>
    <message id="1027">
        <source>The file %1 cannot be read: %2. Its settings are not used.</source>
        <extracomment>%1 path, %2 reason</extracomment>
        <translation>Le fichier %1 ne peut pas être lu : %2. Ses réglages ne sont pas utilisés.</translation>
    </message>
    <message id="1028">
        <source>The sensor is being connected, so nothing else was done. Try again when that has ended.</source>
        <translation>Le capteur est en cours de connexion ; rien d'autre n'a donc été fait. Réessayez quand elle sera terminée.</translation>
    </message>
    <message id="1029">
        <source>The connection to the sensor was lost. Nothing was sent. The sensor is connected again when this dialog is closed.</source>
        <translation>La connexion au capteur a été perdue. Rien n'a été envoyé. Le capteur sera reconnecté à la fermeture de cette boîte de dialogue.</translation>
    </message>
    <message id="1030">
        <source>The sensor answered, but its firmware revision %1 lies in none of the configured ranges. Check your site's bounds in the settings.</source>
        <extracomment>%1 firmware revision, two hexadecimal digits</extracomment>
        <translation>Le capteur a répondu, mais sa révision de firmware %1 n'est dans aucune des plages configurées. Vérifiez les limites de votre site dans les réglages.</translation>
    </message>
    <message id="1031">
        <source>%1 could not be closed: its device does not react. Until it does, no program can open this port. Unplug the adapter.</source>
        <extracomment>%1 name of the port</extracomment>
        <translation>%1 n'a pas pu être fermé : son périphérique ne réagit pas. Tant qu'il ne réagit pas, aucun programme ne peut ouvrir ce port. Débranchez l'adaptateur.</translation>
    </message>
    <message id="1100">
        <source>The sensor is not identified. Connect it before its position is shown.</source>
        <translation>Le capteur n'est pas identifié. Connectez-le avant d'afficher sa position.</translation>
    </message>
    <message id="1102">
        <source>Switch the sensor's supply off and on again now.</source>
        <translation>Coupez puis rétablissez maintenant l'alimentation du capteur.</translation>
    </message>
    <message id="1103">
        <source>Note</source>
        <translation>Remarque</translation>
    </message>
    <message id="1104">
        <source>Live magnet position in millimetres</source>
        <translation>Position actuelle de l'aimant en millimètres</translation>
    </message>
    <message id="1105">
        <source>The sensor's data format could not be kept in %1: %2. Nothing was written to the sensor, so its position cannot be shown.</source>
        <extracomment>%1 path, %2 reason</extracomment>
        <translation>Le format de données du capteur n'a pas pu être conservé dans %1 : %2. Rien n'a été écrit dans le capteur ; sa position ne peut donc pas être affichée.</translation>
    </message>
    <message id="1106">
        <source>The position stream could not be ended, so nothing else was done. Connect the sensor again.</source>
        <translation>La sortie continue de position n'a pas pu être arrêtée ; rien d'autre n'a donc été fait. Reconnectez le capteur.</translation>
    </message>
    <message id="1107">
        <source>The sensor on %1 with the version answer %2 may still carry the data format for the position stream: its own one, %3, has not been read back from it. That is written back as soon as the sensor is connected there again.</source>
        <extracomment>%1 device, %2 version answer, %3 data format</extracomment>
        <translation>Le capteur sur %1, dont la réponse de version est %2, a peut-être encore le format de données de la sortie continue de position : son propre format, %3, n'a pas été relu. Celui-ci sera réécrit dès que le capteur y sera reconnecté.</translation>
    </message>
    <message id="1108">
        <source>Try again</source>
        <translation>Réessayer</translation>
    </message>
    <message id="1109">
        <source>Forget</source>
        <translation>Oublier</translation>
    </message>
    <message id="1110">
        <source>Forget the data format %1 of the sensor on %2? It is then not written back any more.</source>
        <extracomment>%1 data format, %2 device</extracomment>
        <translation>Oublier le format de données %1 du capteur sur %2 ? Il ne sera alors plus réécrit.</translation>
    </message>
    <message id="1111">
        <source>The data format of the connected sensor could not be read; it may still be the one for the position stream. Connect the sensor again.</source>
        <translation>Le format de données du capteur connecté n'a pas pu être lu ; c'est peut-être encore celui de la sortie continue de position. Reconnectez le capteur.</translation>
    </message>
    <message id="1112">
        <source>The sensor still carries the data format for the position stream. Nothing was saved or written. Connect the sensor again, so that its own data format is written back.</source>
        <translation>Le capteur a encore le format de données de la sortie continue de position. Rien n'a été enregistré ni écrit. Reconnectez le capteur pour que son propre format de données soit réécrit.</translation>
    </message>
    <message id="1200">
        <source>Password</source>
        <translation>Mot de passe</translation>
    </message>
    <message id="1201">
        <source>The values on this page have not all been read from the sensor as it is connected now. Refresh the page before you apply changes.</source>
        <translation>Les valeurs de cette page n'ont pas toutes été lues dans le capteur actuellement connecté. Actualisez la page avant d'appliquer des modifications.</translation>
    </message>
    <message id="1204">
        <source>The error skip count must be a number from 0 to 255.</source>
        <translation>Le nombre d'erreurs ignorées doit être compris entre 0 et 255.</translation>
    </message>
    <message id="1205">
        <source>The sensor cannot hold the scale factor or the offset that these settings give. Choose a coarser resolution or another offset. Nothing was written.</source>
        <translation>Le capteur n'admet pas le facteur d'échelle ou le décalage qui résultent de ces réglages. Choisissez une résolution plus grossière ou un autre décalage. Rien n'a été écrit.</translation>
    </message>
    <message id="1206">
        <source>The sensor has no valid resolution, so its offset is not known. Nothing was written.</source>
        <translation>Le capteur n'a pas de résolution valide ; son décalage n'est donc pas connu. Rien n'a été écrit.</translation>
    </message>
    <message id="1302">
        <source>This value must not be longer than %1 characters.</source>
        <translation>Cette valeur ne doit pas dépasser %1 caractères.</translation>
    </message>
    <message id="1303">
        <source>This value must have exactly %1 characters.</source>
        <translation>Cette valeur doit avoir exactement %1 caractères.</translation>
    </message>
    <message id="1304">
        <source>This value must consist of the digits 0 to 9 only.</source>
        <translation>Cette valeur ne doit comporter que des chiffres de 0 à 9.</translation>
    </message>
    <message id="1305">
        <source>This value must be 0, 2, 4 or 8.</source>
        <translation>Cette valeur doit être 0, 2, 4 ou 8.</translation>
    </message>
    <message id="1306">
        <source>This value must be a hexadecimal number from 0 to %1.</source>
        <translation>Cette valeur doit être un nombre hexadécimal de 0 à %1.</translation>
    </message>
    <message id="1307">
        <source>This value must be a number from %1 to %2.</source>
        <translation>Cette valeur doit être un nombre de %1 à %2.</translation>
    </message>
    <message id="1308">
        <source>This value may only contain unaccented letters, digits, spaces and ASCII punctuation.</source>
        <translation>Cette valeur ne doit contenir que des lettres sans accent, des chiffres, des espaces et la ponctuation des caractères ASCII.</translation>
    </message>
    <message id="1310">
        <source>Parameters written before: %1. Read the sensor's parameters and check them before you use the sensor.</source>
        <translation>Paramètres écrits auparavant : %1. Lisez et vérifiez les paramètres du capteur avant de l'utiliser.</translation>
    </message>
    <message id="1311">
        <source>No parameter had been written before. Read the sensor's parameters and check them before you use the sensor.</source>
        <translation>Aucun paramètre n'avait été écrit auparavant. Lisez et vérifiez les paramètres du capteur avant de l'utiliser.</translation>
    </message>
    <message id="1320">
        <source>The file %1 could not be written: %2. A file of this name that was there before is unchanged.</source>
        <translation>Le fichier %1 n'a pas pu être écrit : %2. Un fichier de ce nom qui existait déjà est inchangé.</translation>
    </message>
    <message id="1321">
        <source>The file %1 could not be read: %2.</source>
        <translation>Le fichier %1 n'a pas pu être lu : %2.</translation>
    </message>
    <message id="1322">
        <source>The backup file does not hold every parameter that the connected sensor needs. Nothing was written.</source>
        <translation>Le fichier de sauvegarde ne contient pas tous les paramètres nécessaires au capteur connecté. Rien n'a été écrit.</translation>
    </message>
    <message id="1323">
        <source>Missing: %1</source>
        <translation>Manquants : %1</translation>
    </message>
    <message id="1324">
        <source>Not usable: %1</source>
        <translation>Inutilisables : %1</translation>
    </message>
    <message id="1325">
        <source>Save Backup</source>
        <translation>Enregistrer une sauvegarde</translation>
    </message>
    <message id="1326">
        <source>Restore Backup</source>
        <translation>Restaurer une sauvegarde</translation>
    </message>
    <message id="1328">
        <source>The sensor is not identified. Connect it before you save its parameters.</source>
        <translation>Le capteur n'est pas identifié. Connectez-le avant de sauvegarder ses paramètres.</translation>
    </message>
    <message id="1329">
        <source>Progress</source>
        <translation>Progression</translation>
    </message>
    <message id="1330">
        <source>Parameter %1 was read as "%2", which is not a valid value: the answer may have been disturbed. Refresh the page. Nothing was written.</source>
        <translation>Le paramètre %1 a été lu comme « %2 », ce qui n'est pas une valeur valable : la réponse a peut-être été perturbée. Actualisez la page. Rien n'a été écrit.</translation>
    </message>
    <message id="1331">
        <source>The backup was saved. These texts are unusual for their parameters, but the sensor answered each of them twice:</source>
        <extracomment>The texts follow, a line each</extracomment>
        <translation>La sauvegarde a été enregistrée. Ces textes sont inhabituels pour leurs paramètres, mais le capteur a répondu deux fois avec chacun d'eux :</translation>
    </message>
    <message id="1332">
        <source>The file holds texts that are unusual for their parameters. Write them to the sensor all the same?</source>
        <extracomment>The texts follow, a line each</extracomment>
        <translation>Le fichier contient des textes inhabituels pour leurs paramètres. Les écrire tout de même dans le capteur ?</translation>
    </message>
    <message id="1400">
        <source>Not hexadecimal, but sent all the same: %1</source>
        <translation>Non hexadécimal, mais envoyé quand même : %1</translation>
    </message>
    <message id="1401">
        <source>field %1 "%2" as %3</source>
        <translation>champ %1 « %2 » comme %3</translation>
    </message>
    <message id="1402">
        <source>The serial port is not available. Nothing was sent.</source>
        <translation>Le port série n'est pas disponible. Rien n'a été envoyé.</translation>
    </message>
    <message id="1403">
        <source>Cut off: the sensor was still sending after 60 seconds or 1 MiB.</source>
        <translation>Interrompu : le capteur n'a pas cessé d'émettre dans la limite de 60 secondes et de 1 Mio.</translation>
    </message>
    <message id="1404">
        <source>Fields that are not hexadecimal</source>
        <translation>Champs non hexadécimaux</translation>
    </message>
    <message id="1405">
        <source>Outcome of the exchange</source>
        <translation>Résultat de l'échange</translation>
    </message>
    <message id="1406">
        <source>Copy</source>
        <translation>Copier</translation>
    </message>
    <message id="1407">
        <source>The serial port was lost during the exchange. What was sent or received may be incomplete.</source>
        <translation>Le port série a été perdu pendant l'échange. L'envoi ou la réception peuvent être incomplets.</translation>
    </message>
    <message id="1502">
        <source>The file holds more rows than the table. Rows in the file: %1; read: %2; ignored: %3.</source>
        <translation>Le fichier contient plus de lignes que la table. Lignes dans le fichier : %1 ; lues : %2 ; ignorées : %3.</translation>
    </message>
    <message id="1503">
        <source>This has no function in this version.</source>
        <translation>Sans fonction dans cette version.</translation>
    </message>
    <message id="1510">
        <source>The file has been written, but it does not hold these cells as they were typed. A point is kept in steps of 0.5 from -16384.0 to 16383.5, a value as the integer that it begins with, and anything else as 0.</source>
        <translation>Le fichier a été écrit, mais ces cellules y figurent autrement que saisies. Un point est enregistré par pas de 0.5 de -16384.0 à 16383.5, une valeur comme le nombre entier par lequel elle commence, et tout le reste comme 0.</translation>
    </message>
    <message id="1600">
        <source>%1 is the port of the sensor. The display unit needs a port of its own; the value QDL3Comport of the settings names it.</source>
        <translation>%1 est le port du capteur. L'afficheur a besoin de son propre port, indiqué par la valeur QDL3Comport des réglages.</translation>
    </message>
    <message id="1601">
        <source>The port %1 no longer exists. Reconnect its adapter, then close the window of the display unit and open it again.</source>
        <translation>Le port %1 n'existe plus. Rebranchez son adaptateur, puis fermez la fenêtre de l'afficheur et ouvrez-la de nouveau.</translation>
    </message>
    <message id="1602">
        <source>%1 is the port of the display unit. Close the window of the display unit before you choose this port for the sensor.</source>
        <translation>%1 est le port de l'afficheur. Fermez la fenêtre de l'afficheur avant de choisir ce port pour le capteur.</translation>
    </message>
    <message id="1603">
        <source>Current reading of the display unit</source>
        <translation>Valeur actuelle de l'afficheur</translation>
    </message>
    <message id="1610">
        <source>The display unit has acknowledged the settings.</source>
        <translation>L'afficheur a acquitté les réglages.</translation>
    </message>
    <message id="1611">
        <source>The display unit has not acknowledged all settings. Some of them may be in effect: apply them again.</source>
        <translation>L'afficheur n'a pas acquitté tous les réglages. Certains sont peut-être déjà actifs, appliquez-les de nouveau.</translation>
    </message>
    <message id="1612">
        <source>The value QDL3NodeID of the settings is %1. The display unit needs a node from 0 to 9.</source>
        <extracomment>%1 value</extracomment>
        <translation>La valeur QDL3NodeID des réglages est %1. L'afficheur a besoin d'un nœud de 0 à 9.</translation>
    </message>
    <message id="1700">
        <source>Reading what the sensor has…</source>
        <translation>Lecture de l'état du capteur…</translation>
    </message>
    <message id="1701">
        <source>Restarting the sensor…</source>
        <translation>Redémarrage du capteur…</translation>
    </message>
    <message id="1702">
        <source>Comparing what the sensor has with what was written…</source>
        <translation>Comparaison de l'état du capteur avec ce qui a été écrit…</translation>
    </message>
    <message id="1703">
        <source>Verified: after a restart the sensor has all that was written.</source>
        <translation>Vérifié : après un redémarrage, le capteur a tout ce qui a été écrit.</translation>
    </message>
    <message id="1704">
        <source>Differs: the sensor does not have all that was written.</source>
        <translation>Différence : le capteur n'a pas tout ce qui a été écrit.</translation>
    </message>
    <message id="1705">
        <source>Not checked: it is not known what the sensor has.</source>
        <translation>Non vérifié : on ne sait pas ce que le capteur contient.</translation>
    </message>
    <message id="1706">
        <source>Nothing was written.</source>
        <translation>Rien n'a été écrit.</translation>
    </message>
    <message id="1707">
        <source>Differs: nothing was changed, the sensor has all that it had before.</source>
        <translation>Différence : rien n'a changé, le capteur a tout ce qu'il avait auparavant.</translation>
    </message>
    <message id="1708">
        <source>%1: written %2; the sensor has %3</source>
        <extracomment>%1 parameter, %2 and %3 values</extracomment>
        <translation>%1 : écrit %2 ; le capteur a %3</translation>
    </message>
    <message id="1709">
        <source>No usable answer: %1</source>
        <extracomment>%1 parameters</extracomment>
        <translation>Pas de réponse exploitable : %1</translation>
    </message>
    <message id="1710">
        <source>The sensor answers what was written, but it was not restarted and may not have stored it.</source>
        <translation>Le capteur répond ce qui a été écrit, mais il n'a pas été redémarré et ne l'a peut-être pas enregistré.</translation>
    </message>
    <message id="1711">
        <source>At least a part of what was written could not be read back.</source>
        <translation>Une partie au moins de ce qui a été écrit n'a pas pu être relue.</translation>
    </message>
    <message id="1712">
        <source>Another sensor has answered than the one that was written to.</source>
        <translation>C'est un autre capteur que celui dans lequel on a écrit qui a répondu.</translation>
    </message>
    <message id="1713">
        <source>The program was closed before the sensor could be read.</source>
        <translation>Le programme a été fermé avant que le capteur puisse être lu.</translation>
    </message>
    <message id="1714">
        <source>Safe writes are switched off.</source>
        <translation>L'écriture sûre est désactivée.</translation>
    </message>
    <message id="1715">
        <source>It is compared when this sensor is connected again.</source>
        <translation>La comparaison aura lieu quand ce capteur sera reconnecté.</translation>
    </message>
    <message id="1716">
        <source>The offset has come back as it was before it was multiplied: the sensor may divide it.</source>
        <translation>Le décalage est revenu tel qu'il était avant la multiplication : le capteur le divise peut-être.</translation>
    </message>
    <message id="1717">
        <source>The sensor no longer has what is shown: %1. Click Refresh, then enter your changes again.</source>
        <extracomment>%1 parameters</extracomment>
        <translation>Le capteur n'a plus ce qui est affiché : %1. Cliquez sur Actualiser, puis saisissez à nouveau vos modifications.</translation>
    </message>
    <message id="1718">
        <source>What the sensor has now could not be kept:
%1
Without that it cannot be put back. Write all the same?</source>
        <extracomment>%1 what failed</extracomment>
        <translation>L'état actuel du capteur n'a pas pu être conservé :
%1
Sans cela, il ne peut pas être rétabli. Écrire malgré tout ?</translation>
    </message>
    <message id="1719">
        <source>These parameters of the sensor could not be read, so that they cannot be put back: %1. Write all the same?</source>
        <extracomment>%1 parameters</extracomment>
        <translation>Ces paramètres du capteur n'ont pas pu être lus et ne pourront donc pas être rétablis : %1. Écrire malgré tout ?</translation>
    </message>
    <message id="1720">
        <source>Write All the Same</source>
        <translation>Écrire malgré tout</translation>
    </message>
    <message id="1721">
        <source>Do Not Write</source>
        <translation>Ne pas écrire</translation>
    </message>
    <message id="1722">
        <source>Write Again</source>
        <translation>Réécrire</translation>
    </message>
    <message id="1723">
        <source>Put Back…</source>
        <translation>Rétablir…</translation>
    </message>
    <message id="1724">
        <source>%1 counts</source>
        <extracomment>%1 number</extracomment>
        <translation>%1 pas</translation>
    </message>
    <message id="1725">
        <source>Notice</source>
        <translation>Avis</translation>
    </message>
    <message id="1726">
        <source>Another sensor is connected than the one that was written to.</source>
        <translation>Le capteur connecté n'est pas celui dans lequel on a écrit.</translation>
    </message>
    <message id="1730">
        <source>&amp;Compare with Backup…</source>
        <extracomment>Menu item</extracomment>
        <translation>&amp;Comparer avec une sauvegarde…</translation>
    </message>
    <message id="1731">
        <source>Compare with Backup</source>
        <translation>Comparer avec une sauvegarde</translation>
    </message>
    <message id="1732">
        <source>The sensor no longer has what the review showed: %1. Read it again.</source>
        <extracomment>%1 parameters</extracomment>
        <translation>Le capteur n'a plus ce que la vérification a montré : %1. Relisez-le.</translation>
    </message>
    <message id="1733">
        <source>Review Before Writing</source>
        <translation>Vérification avant l'écriture</translation>
    </message>
    <message id="1734">
        <source>Put Back</source>
        <extracomment>Title</extracomment>
        <translation>Rétablir un état antérieur</translation>
    </message>
    <message id="1735">
        <source>Sensor</source>
        <extracomment>Column heading, and name of the line above the page</extracomment>
        <translation>Capteur</translation>
    </message>
    <message id="1736">
        <source>File</source>
        <extracomment>Column heading</extracomment>
        <translation>Fichier</translation>
    </message>
    <message id="1737">
        <source>Earlier</source>
        <extracomment>Column heading: the value that the sensor had</extracomment>
        <translation>Avant</translation>
    </message>
    <message id="1738">
        <source>%1, in words</source>
        <extracomment>Column heading; %1 whose value</extracomment>
        <translation>%1, en clair</translation>
    </message>
    <message id="1739">
        <source>Comparison</source>
        <extracomment>Window title and column heading</extracomment>
        <translation>Comparaison</translation>
    </message>
    <message id="1740">
        <source>differs</source>
        <extracomment>Of two values</extracomment>
        <translation>différent</translation>
    </message>
    <message id="1741">
        <source>equal</source>
        <extracomment>Of two values</extracomment>
        <translation>égal</translation>
    </message>
    <message id="1742">
        <source>Name</source>
        <extracomment>Column heading</extracomment>
        <translation>Nom</translation>
    </message>
    <message id="1743">
        <source>To Be Written</source>
        <extracomment>Column heading</extracomment>
        <translation>À écrire</translation>
    </message>
    <message id="1744">
        <source>stays as it is</source>
        <translation>reste inchangé</translation>
    </message>
    <message id="1745">
        <source>with this sensor's own multiplier</source>
        <translation>avec le multiplicateur propre à ce capteur</translation>
    </message>
    <message id="1746">
        <source>The saved data format asks for the position stream. That is never written.</source>
        <translation>Le format de données sauvegardé demande la sortie continue de position. Un tel format n'est jamais écrit.</translation>
    </message>
    <message id="1747">
        <source>computed from this sensor's own gradient</source>
        <translation>calculé avec le gradient propre à ce capteur</translation>
    </message>
    <message id="1748">
        <source>this sensor's own length; the saved offset belongs to another stroke length or multiplier</source>
        <translation>longueur propre à ce capteur ; le décalage sauvegardé appartient à uneune autreautre course de mesure ou à un autre multiplicateur</translation>
    </message>
    <message id="1749">
        <source>The calibration is the saved one: it looks like the same sensor. Suggested: all parameters.</source>
        <translation>L'étalonnage est celui qui a été sauvegardé : il semble que ce soit le même capteur. Proposé : tous les paramètres.</translation>
    </message>
    <message id="1750">
        <source>The calibration is not the saved one (%1): this may be another sensor.</source>
        <extracomment>%1 parameters</extracomment>
        <translation>L'étalonnage n'est pas celui qui a été sauvegardé (%1) : c'est peut-être un autre capteur.</translation>
    </message>
    <message id="1751">
        <source>All parameters: the sensor becomes what was saved, its calibration included</source>
        <translation>Tous les paramètres : le capteur devient ce qui a été sauvegardé, étalonnage compris</translation>
    </message>
    <message id="1752">
        <source>Output settings only, for a replaced sensor: this sensor's calibration stays</source>
        <translation>Réglages de sortie seuls, pour un capteur remplacé : l'étalonnage de ce capteur reste</translation>
    </message>
    <message id="1753">
        <source>Write</source>
        <extracomment>Button</extracomment>
        <translation>Écrire</translation>
    </message>
    <message id="1754">
        <source>Comparisons (*.csv);;All files (*)</source>
        <extracomment>File filter</extracomment>
        <translation>Comparaisons (*.csv);;Tous les fichiers (*)</translation>
    </message>
    <message id="1755">
        <source>A backup does not hold: %1</source>
        <extracomment>%1 parameters</extracomment>
        <translation>Une sauvegarde ne contient pas : %1</translation>
    </message>
    <message id="1756">
        <source>Not as it was then: %1. This may be another sensor than the one whose state was kept.</source>
        <extracomment>%1 parameters</extracomment>
        <translation>Pas comme alors : %1. C'est peut-être un autre capteur que celui dont l'état a été conservé.</translation>
    </message>
    <message id="1757">
        <source>The measurement direction differs, and the saved offset cannot be taken over: it is to be calculated on the page Output Setup.</source>
        <translation>Le sens de mesure est différent et le décalage sauvegardé ne peut pas être repris : il est à calculer dans la page Réglage de la sortie.</translation>
    </message>
    <message id="1758">
        <source>Nothing differs: the sensor already has all that would be written. Nothing was written.</source>
        <translation>Aucune différence : le capteur a déjà tout ce qui serait écrit. Rien n'a été écrit.</translation>
    </message>
    <message id="1759">
        <source>This state was kept of a sensor of another type. Nothing was written.</source>
        <translation>Cet état provient d'un capteur d'un autre type. Rien n'a été écrit.</translation>
    </message>
    <message id="1760">
        <source>E&amp;arlier States…</source>
        <translation>États &amp;antérieurs…</translation>
    </message>
    <message id="1761">
        <source>Earlier States</source>
        <translation>États antérieurs</translation>
    </message>
    <message id="1762">
        <source>Only of the connected sensor</source>
        <translation>Seulement du capteur connecté</translation>
    </message>
    <message id="1763">
        <source>Time</source>
        <translation>Heure</translation>
    </message>
    <message id="1764">
        <source>Port and Device</source>
        <translation>Port et périphérique</translation>
    </message>
    <message id="1765">
        <source>Revision</source>
        <translation>Révision</translation>
    </message>
    <message id="1766">
        <source>Written By</source>
        <translation>Écrit par</translation>
    </message>
    <message id="1767">
        <source>Written</source>
        <translation>Écrit</translation>
    </message>
    <message id="1768">
        <source>Outcome</source>
        <translation>Résultat</translation>
    </message>
    <message id="1769">
        <source>Before</source>
        <translation>Auparavant</translation>
    </message>
    <message id="1770">
        <source>%1 (raw)</source>
        <extracomment>%1: Before, or Written</extracomment>
        <translation>%1 (brut)</translation>
    </message>
    <message id="1771">
        <source>Unfinished: it is not known how much of it was written.</source>
        <translation>Inachevé : on ne sait pas ce qui en a été écrit.</translation>
    </message>
    <message id="1772">
        <source>Files in %1 that could not be read: %2</source>
        <extracomment>%1: folder, %2: how many</extracomment>
        <translation>Fichiers de %1 qui n'ont pas pu être lus : %2</translation>
    </message>
    <message id="1773">
        <source>Delete…</source>
        <translation>Supprimer…</translation>
    </message>
    <message id="1774">
        <source>Delete the state of %1? It can then not be put back any more.</source>
        <extracomment>%1: time</extracomment>
        <translation>Supprimer l'état du %1 ? Il ne pourra alors plus être rétabli.</translation>
    </message>
    <message id="1775">
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message id="1776">
        <source>A write to a sensor (%1, %2) on %3 was not finished. If it was this sensor, it has all of it, a part of it or nothing.</source>
        <extracomment>%1: device, %2: version answer, %3: time; which sensor it was is known by these alone</extracomment>
        <translation>Une écriture dans un capteur (%1, %2) du %3 est restée inachevée. Si c'était ce capteur, il en a tout, une partie ou rien.</translation>
    </message>
    <message id="1777">
        <source>Show…</source>
        <translation>Afficher…</translation>
    </message>
    <message id="1778">
        <source>Earlier state put back</source>
        <translation>État antérieur rétabli</translation>
    </message>
    <message id="1779">
        <source>Command line</source>
        <translation>Ligne de commande</translation>
    </message>
    <message id="1780">
        <source>Changes not applied: %1</source>
        <extracomment>%1 number, from 1 on</extracomment>
        <translation>Modifications non appliquées : %1</translation>
    </message>
    <message id="1781">
        <source>Changes on this page that have not been applied: %1. Discard them?</source>
        <extracomment>%1 number, from 1 on</extracomment>
        <translation>Modifications de cette page qui ne sont pas appliquées : %1. Les abandonner ?</translation>
    </message>
    <message id="1782">
        <source>Stay</source>
        <translation>Rester</translation>
    </message>
    <message id="1783">
        <source>Discard</source>
        <translation>Abandonner</translation>
    </message>
    <message id="1784">
        <source>Read: %1</source>
        <extracomment>%1 value</extracomment>
        <translation>Lu : %1</translation>
    </message>
    <message id="1785">
        <source>Nothing was read that can be shown here.</source>
        <translation>Rien n'a été lu qui puisse être affiché ici.</translation>
    </message>
    <message id="1786">
        <source>Nothing was changed. Write the values all the same?</source>
        <translation>Rien n'a été modifié. Écrire les valeurs quand même ?</translation>
    </message>
    <message id="1800">
        <source>The data format has the multiplier %1, and the offset was not entered anew. What shall be written?</source>
        <extracomment>%1 multiplier</extracomment>
        <translation>Le format de données a le multiplicateur %1 et le décalage n'a pas été ressaisi. Que faut-il écrire ?</translation>
    </message>
    <message id="1801">
        <source>Offset so far: %1</source>
        <extracomment>%1: counts and length</extracomment>
        <translation>Décalage jusqu'à présent : %1</translation>
    </message>
    <message id="1802">
        <source>Keep the length: %1</source>
        <extracomment>%1 counts and length</extracomment>
        <translation>Conserver la longueur : %1</translation>
    </message>
    <message id="1803">
        <source>Write it multiplied: %1</source>
        <extracomment>%1 counts and length</extracomment>
        <translation>Écrire multiplié : %1</translation>
    </message>
    <message id="1804">
        <source>Keep the Length</source>
        <translation>Conserver la longueur</translation>
    </message>
    <message id="1805">
        <source>Write It Multiplied</source>
        <translation>Écrire multiplié</translation>
    </message>
    <message id="1815">
        <source>Reading the data format…</source>
        <translation>Lecture du format de données…</translation>
    </message>
    <message id="1816">
        <source>Writing the data format for the position stream…</source>
        <translation>Écriture du format de données pour la sortie continue de position…</translation>
    </message>
    <message id="1817">
        <source>Waiting for the sensor to store the data format…</source>
        <translation>Le capteur enregistre le format de données…</translation>
    </message>
    <message id="1818">
        <source>Restarting the sensor…</source>
        <translation>Redémarrage du capteur…</translation>
    </message>
    <message id="1819">
        <source>Waiting for the position stream…</source>
        <translation>En attente de la sortie continue de position…</translation>
    </message>
    <message id="1820">
        <source>Ending the position stream and connecting the sensor…</source>
        <translation>Arrêt de la sortie continue de position et connexion du capteur…</translation>
    </message>
    <message id="1821">
        <source>Writing the sensor's own data format back…</source>
        <translation>Réécriture du propre format de données du capteur…</translation>
    </message>
    <message id="1830">
        <source>Time Shown</source>
        <extracomment>Caption of a list of durations</extracomment>
        <translation>Durée affichée</translation>
    </message>
    <message id="1831">
        <source>%1 s</source>
        <extracomment>%1 seconds</extracomment>
        <translation>%1 s</translation>
    </message>
    <message id="1832">
        <source>%1 min</source>
        <extracomment>%1 minutes</extracomment>
        <translation>%1 min</translation>
    </message>
    <message id="1833">
        <source>Whole Recording</source>
        <extracomment>Entry of the list of durations</extracomment>
        <translation>Tout l'enregistrement</translation>
    </message>
    <message id="1834">
        <source>Hold Range</source>
        <extracomment>Check box: the range of the position axis stays as it is</extracomment>
        <translation>Figer l'échelle</translation>
    </message>
    <message id="1835">
        <source>Pause</source>
        <extracomment>Button that stays pressed</extracomment>
        <translation>Pause</translation>
    </message>
    <message id="1836">
        <source>Zero Here</source>
        <extracomment>Button that stays pressed: positions are shown relative to this one</extracomment>
        <translation>Zéro ici</translation>
    </message>
    <message id="1837">
        <source>Record…</source>
        <extracomment>Button</extracomment>
        <translation>Enregistrer…</translation>
    </message>
    <message id="1838">
        <source>Stop Recording</source>
        <extracomment>Button</extracomment>
        <translation>Arrêter l'enregistrement</translation>
    </message>
    <message id="1839">
        <source>Open Recording…</source>
        <extracomment>Button</extracomment>
        <translation>Ouvrir un enregistrement…</translation>
    </message>
    <message id="1840">
        <source>Minimum</source>
        <extracomment>Figure</extracomment>
        <translation>Minimum</translation>
    </message>
    <message id="1841">
        <source>Maximum</source>
        <extracomment>Figure</extracomment>
        <translation>Maximum</translation>
    </message>
    <message id="1842">
        <source>Span</source>
        <extracomment>Figure: maximum less minimum</extracomment>
        <translation>Étendue</translation>
    </message>
    <message id="1843">
        <source>Mean</source>
        <extracomment>Figure</extracomment>
        <translation>Moyenne</translation>
    </message>
    <message id="1844">
        <source>Standard Deviation</source>
        <extracomment>Figure</extracomment>
        <translation>Écart type</translation>
    </message>
    <message id="1845">
        <source>Positions per Second</source>
        <extracomment>Figure</extracomment>
        <translation>Positions par seconde</translation>
    </message>
    <message id="1846">
        <source>Malformed Frames</source>
        <extracomment>Figure: what came and was no position</extracomment>
        <translation>Trames erronées</translation>
    </message>
    <message id="1847">
        <source>Time at the Cursor</source>
        <extracomment>Figure</extracomment>
        <translation>Temps au curseur</translation>
    </message>
    <message id="1848">
        <source>Position at the Cursor</source>
        <extracomment>Figure</extracomment>
        <translation>Position au curseur</translation>
    </message>
    <message id="1849">
        <source>Trace of the position</source>
        <extracomment>For screen readers</extracomment>
        <translation>Tracé de la position</translation>
    </message>
    <message id="1850">
        <source>No positions</source>
        <extracomment>In place of the trace</extracomment>
        <translation>Aucune position</translation>
    </message>
    <message id="1851">
        <source>Relative to %1 mm</source>
        <extracomment>%1 position</extracomment>
        <translation>Par rapport à %1 mm</translation>
    </message>
    <message id="1852">
        <source>The recording %1 has ended: %2. What was recorded before is in the file.</source>
        <extracomment>%1 path, %2 the system's reason</extracomment>
        <translation>L'enregistrement %1 est terminé : %2. Ce qui a été enregistré auparavant est dans le fichier.</translation>
    </message>
    <message id="1853">
        <source>The file %1 is no recording of positions that this version can read: line 1 is not the first line of one.</source>
        <extracomment>%1 path</extracomment>
        <translation>Le fichier %1 n'est pas un enregistrement de positions que cette version peut lire : la ligne 1 n'en est pas la première.</translation>
    </message>
    <message id="1854">
        <source>The recording %1 is damaged at line %2. Lines that could not be read: %3. All others are shown.</source>
        <extracomment>%1 path, %2 number of the first such line, %3 count</extracomment>
        <translation>L'enregistrement %1 est endommagé à la ligne %2. Lignes illisibles : %3. Toutes les autres sont affichées.</translation>
    </message>
    <message id="1855">
        <source>Recording %1</source>
        <extracomment>Title of a window, %1 file name</extracomment>
        <translation>Enregistrement %1</translation>
    </message>
    <message id="1856">
        <source>Sensor version %1, type %2, port %3, resolution %4 mm, begun %5 (UTC)</source>
        <extracomment>What a recording tells of itself</extracomment>
        <translation>Version du capteur %1, type %2, port %3, résolution %4 mm, début %5 (UTC)</translation>
    </message>
    <message id="1857">
        <source>All Decimals</source>
        <extracomment>Check box: the position is shown with the decimals of the resolution</extracomment>
        <translation>Toutes les décimales</translation>
    </message>
    <message id="1858">
        <source>Recordings (*.csv);;All files (*)</source>
        <extracomment>File filter</extracomment>
        <translation>Enregistrements (*.csv);;Tous les fichiers (*)</translation>
    </message>
    <message id="1859">
        <source>mm/s</source>
        <extracomment>Unit</extracomment>
        <translation>mm/s</translation>
    </message>
    <message id="1860">
        <source>s</source>
        <extracomment>Unit</extracomment>
        <translation>s</translation>
    </message>
    <message id="1861">
        <source>Longest Gap</source>
        <extracomment>Figure beside a trace: the longest time without a position</extracomment>
        <translation>Plus longue lacune</translation>
    </message>
    <message id="1862">
        <source>Recorded</source>
        <extracomment>Figure beside a trace: how many seconds have been recorded</extracomment>
        <translation>Enregistré</translation>
    </message>
    <message id="1870">
        <source>Output settings only is not possible: the page Output Setup does not offer what the file has: %1</source>
        <extracomment>%1: parameters</extracomment>
        <translation>Réglages de sortie seuls n'est pas possible : la page Réglage de la sortie ne propose pas ce qu'a le fichier : %1</translation>
    </message>
    <message id="1900">
        <source>&amp;Settings…</source>
        <translation>&amp;Réglages…</translation>
    </message>
    <message id="1901">
        <source>Settings</source>
        <translation>Réglages</translation>
    </message>
    <message id="1902">
        <source>Sensor Types</source>
        <translation>Types de capteur</translation>
    </message>
    <message id="1903">
        <source>General</source>
        <translation>Général</translation>
    </message>
    <message id="1904">
        <source>Ports</source>
        <translation>Ports</translation>
    </message>
    <message id="1905">
        <source>Sensor Packages</source>
        <translation>Modèles de capteur</translation>
    </message>
    <message id="1906">
        <source>Display Unit</source>
        <translation>Afficheur</translation>
    </message>
    <message id="1908">
        <source>Lowest Revision (hexadecimal)</source>
        <translation>Révision la plus basse (hexadécimale)</translation>
    </message>
    <message id="1909">
        <source>Highest Revision (hexadecimal)</source>
        <translation>Révision la plus haute (hexadécimale)</translation>
    </message>
    <message id="1910">
        <source>The connected sensor has the revision %1 (version answer %2).</source>
        <translation>Le capteur connecté a la révision %1 (réponse de version %2).</translation>
    </message>
    <message id="1911">
        <source>No sensor has answered.</source>
        <translation>Aucun capteur n'a répondu.</translation>
    </message>
    <message id="1912">
        <source>Types %1 and %2 both have the revisions %3 to %4: a sensor with one of them counts as type %1.</source>
        <translation>Les types %1 et %2 ont tous deux les révisions %3 à %4 : un capteur qui a l'une d'elles compte comme type %1.</translation>
    </message>
    <message id="1913">
        <source>The sensor's supply is switched by hand</source>
        <translation>L'alimentation du capteur est commutée à la main</translation>
    </message>
    <message id="1914">
        <source>Safe writes: keep what the sensor had, restart it and compare what was written</source>
        <translation>Écriture sûre : conserver l'état précédent, redémarrer le capteur et comparer ce qui a été écrit</translation>
    </message>
    <message id="1915">
        <source>Show the page for temperature compensation</source>
        <translation>Afficher la page de compensation de température</translation>
    </message>
    <message id="1916">
        <source>Offer the display unit in the View menu</source>
        <translation>Proposer l'afficheur dans le menu Affichage</translation>
    </message>
    <message id="1917">
        <source>Node:</source>
        <translation>Nœud :</translation>
    </message>
    <message id="1918">
        <source>Device</source>
        <translation>Périphérique</translation>
    </message>
    <message id="1919">
        <source>Description</source>
        <translation>Description</translation>
    </message>
    <message id="1920">
        <source>COM Number</source>
        <translation>Numéro COM</translation>
    </message>
    <message id="1921">
        <source>not present</source>
        <translation>absent</translation>
    </message>
    <message id="1922">
        <source>Add</source>
        <translation>Ajouter</translation>
    </message>
    <message id="1923">
        <source>Remove</source>
        <translation>Retirer</translation>
    </message>
    <message id="1924">
        <source>Import…</source>
        <translation>Importer…</translation>
    </message>
    <message id="1925">
        <source>Use the Site's Settings Again…</source>
        <translation>Utiliser de nouveau les réglages du site…</translation>
    </message>
    <message id="1926">
        <source>These settings are those of the file %1.</source>
        <translation>Ces réglages sont ceux du fichier %1.</translation>
    </message>
    <message id="1927">
        <source>These settings are those of the file %1. A change makes a copy of them, %2. From then on %1 is no longer read.</source>
        <translation>Ces réglages sont ceux du fichier %1. Une modification en crée une copie, %2. Dès lors %1 n'est plus lu.</translation>
    </message>
    <message id="1928">
        <source>These settings are shown only: the file %1 cannot be written: %2.</source>
        <translation>Ces réglages sont seulement affichés : le fichier %1 ne peut pas être écrit : %2.</translation>
    </message>
    <message id="1929">
        <source>Settings files (*.reg);;All files (*)</source>
        <translation>Fichiers de réglages (*.reg);;Tous les fichiers (*)</translation>
    </message>
    <message id="1930">
        <source>Type %1: the lowest revision is above the highest one.</source>
        <translation>Type %1 : la révision la plus basse est au-dessus de la plus haute.</translation>
    </message>
    <message id="1931">
        <source>%1 is the number of two devices, %2 and %3. Give one of them another number.</source>
        <translation>%1 est le numéro de deux périphériques, %2 et %3. Donnez à l'un d'eux un autre numéro.</translation>
    </message>
    <message id="1932">
        <source>“%1” is no COM number for %2. Enter a number from 1 on, or nothing.</source>
        <translation>« %1 » n'est pas un numéro COM pour %2. Entrez un nombre à partir de 1, ou rien.</translation>
    </message>
    <message id="1933">
        <source>The sensor's port is %1: the display unit needs another one.</source>
        <translation>Le port du capteur est %1 : l'afficheur en a besoin d'un autre.</translation>
    </message>
    <message id="1934">
        <source>Package %1: “%2” is no distance in millimetres.</source>
        <translation>Modèle %1 : « %2 » n'est pas une distance en millimètres.</translation>
    </message>
    <message id="1935">
        <source>The package in row %1 needs a name.</source>
        <translation>Le modèle de la ligne %1 a besoin d'un nom.</translation>
    </message>
    <message id="1936">
        <source>The file %1 has changed since it was read. It can be overwritten with what is entered here, or read again, which gives up what is entered.</source>
        <translation>Le fichier %1 a changé depuis qu'il a été lu. Il peut être remplacé par ce qui est entré ici, ou relu, ce qui abandonne les entrées.</translation>
    </message>
    <message id="1937">
        <source>Overwrite</source>
        <translation>Remplacer</translation>
    </message>
    <message id="1938">
        <source>Read Again</source>
        <translation>Relire</translation>
    </message>
    <message id="1939">
        <source>The tables of the page for temperature compensation hold values, which are lost when the page is no longer shown. Go on?</source>
        <translation>Les tableaux de la page de compensation de température contiennent des valeurs, perdues si la page n'est plus affichée. Continuer ?</translation>
    </message>
    <message id="1940">
        <source>Your settings file is renamed to %1, and what is entered here is given up. The site's settings are in force again then. Go on?</source>
        <translation>Votre fichier de réglages est renommé en %1, et ce qui est entré ici est abandonné. Les réglages du site sont alors de nouveau en vigueur. Continuer ?</translation>
    </message>
    <message id="1941">
        <source>COM%1 has become another device, so the port was closed. Choose where to connect.</source>
        <translation>COM%1 désigne désormais un autre périphérique ; le port a donc été fermé. Choisissez où se connecter.</translation>
    </message>
    <message id="1942">
        <source>The sensor is in use: nothing was changed. Try again when that has ended.</source>
        <translation>Le capteur est utilisé : rien n'a été modifié. Réessayez quand ce sera terminé.</translation>
    </message>
    <message id="1943">
        <source>The file %1 holds no sensor packages.</source>
        <translation>Le fichier %1 ne contient aucun modèle de capteur.</translation>
    </message>
    <message id="1944">
        <source>Import Sensor Packages</source>
        <translation>Importer des modèles de capteur</translation>
    </message>
    <message id="1960">
        <source>new number</source>
        <extracomment>In the list of ports, in the place of COM7: the device gets a number when it is chosen</extracomment>
        <translation>nouveau numéro</translation>
    </message>
    <message id="1961">
        <source>No serial adapter is plugged in. As soon as one is, it appears in the list.</source>
        <translation>Aucun adaptateur série n'est branché. Dès qu'il l'est, il apparaît dans la liste.</translation>
    </message>
    <message id="1962">
        <source>%1 is not there. Plug the adapter in, or choose another port.</source>
        <translation>%1 n'est pas présent. Branchez l'adaptateur ou choisissez un autre port.</translation>
    </message>
    <message id="1963">
        <source>Without a Port</source>
        <extracomment>Button</extracomment>
        <translation>Sans port</translation>
    </message>
    <message id="1964">
        <source>Demonstration</source>
        <extracomment>Button</extracomment>
        <translation>Démonstration</translation>
    </message>
    <message id="1965">
        <source>No port is open: there is no sensor to work with. Everything that needs none can be used.</source>
        <extracomment>Above the page</extracomment>
        <translation>Aucun port n'est ouvert : il n'y a pas de capteur avec lequel travailler. Tout ce qui n'en demande pas est utilisable.</translation>
    </message>
    <message id="1966">
        <source>Not identified: the sensor answered with firmware revision %1 (decimal %2). Ranges set: %3.</source>
        <extracomment>%3 is a list of 1967 and 1968</extracomment>
        <translation>Non identifié : le capteur a répondu avec la révision de firmware %1 (décimal %2). Plages réglées : %3.</translation>
    </message>
    <message id="1967">
        <source>type %1: %2 to %3</source>
        <translation>type %1 : %2 à %3</translation>
    </message>
    <message id="1968">
        <source>type %1: none</source>
        <translation>type %1 : aucune</translation>
    </message>
    <message id="1969">
        <source>Use as Type</source>
        <extracomment>Button that opens a menu</extracomment>
        <translation>Utiliser comme type</translation>
    </message>
    <message id="1971">
        <source>Always type %1: from now on %2 to %3, so far %4 to %5</source>
        <extracomment>Menu item: widens the range of revisions in the settings</extracomment>
        <translation>Toujours type %1 : désormais %2 à %3, jusqu'ici %4 à %5</translation>
    </message>
    <message id="1972">
        <source>Always type %1: from now on %2 to %2, so far none</source>
        <translation>Toujours type %1 : désormais %2 à %2, jusqu'ici aucune</translation>
    </message>
    <message id="1973">
        <source>Firmware revision %1 is used as type %2: chosen by hand.</source>
        <translation>La révision de firmware %1 est utilisée comme type %2 : choisi à la main.</translation>
    </message>
    <message id="1974">
        <source>%1, chosen by hand</source>
        <extracomment>A sensor type</extracomment>
        <translation>%1, choisi à la main</translation>
    </message>
    <message id="1975">
        <source>The range is entered in a settings file of your own, a copy of the one that is read now.

From then on %1 is read, and %2 no longer.</source>
        <translation>La plage est inscrite dans un fichier de réglages à vous, copie de celui qui est lu maintenant.

Désormais %1 est lu, et %2 ne l'est plus.</translation>
    </message>
    <message id="1976">
        <source>Last files:</source>
        <extracomment>In the file dialog, before a list</extracomment>
        <translation>Derniers fichiers :</translation>
    </message>
    <message id="1977">
        <source>COM%1 is being opened. That can take up to 20 seconds while another program looks at an adapter that has just been plugged in.</source>
        <extracomment>Box while a port is opened, with a button that leads to the choice of another port</extracomment>
        <translation>COM%1 est en cours d'ouverture. Cela peut prendre jusqu'à 20 secondes, tant qu'un autre programme examine un adaptateur qui vient d'être branché.</translation>
    </message>
    <message id="2000">
        <source>The sensor's port: a COM number, the path of a device, or simulator:...</source>
        <extracomment>Help of pelorin-cli, as all up to 2019</extracomment>
        <translation>Le port du capteur : un numéro COM, le chemin d'un appareil ou simulator:...</translation>
    </message>
    <message id="2001">
        <source>Prints one JSON object instead of words.</source>
        <translation>Affiche un objet JSON au lieu de mots.</translation>
    </message>
    <message id="2002">
        <source>The sensor's type, for a firmware revision that lies in no configured range.</source>
        <translation>Le type du capteur, pour une révision de firmware hors de toutes les plages configurées.</translation>
    </message>
    <message id="2003">
        <source>You switch the sensor's supply by hand, and are told when.</source>
        <translation>Vous commutez l'alimentation du capteur à la main, au moment indiqué.</translation>
    </message>
    <message id="2004">
        <source>Repeats the connecting for so long until a sensor answers.</source>
        <translation>Répète la connexion pendant ce temps jusqu'à ce qu'un capteur réponde.</translation>
    </message>
    <message id="2005">
        <source>Saves the communications log to a file.</source>
        <translation>Enregistre le journal de communication dans un fichier.</translation>
    </message>
    <message id="2006">
        <source>The settings file to be used.</source>
        <translation>Le fichier de réglages à utiliser.</translation>
    </message>
    <message id="2007">
        <source>The language: 1 English, 2 German, 4 French, 8 Spanish, 16 Italian.</source>
        <translation>La langue : 1 anglais, 2 allemand, 4 français, 8 espagnol, 16 italien.</translation>
    </message>
    <message id="2008">
        <source>Answers yes to what would be asked.</source>
        <translation>Répond oui à ce qui serait demandé.</translation>
    </message>
    <message id="2009">
        <source>Writes nothing, neither to a sensor nor to a file other than that of --log.</source>
        <translation>N'écrit rien, ni dans un capteur ni dans un fichier autre que celui de --log.</translation>
    </message>
    <message id="2010">
        <source>Shows this help.</source>
        <translation>Affiche cette aide.</translation>
    </message>
    <message id="2011">
        <source>Shows the program's version.</source>
        <translation>Affiche la version du programme.</translation>
    </message>
    <message id="2012">
        <source>Lists the serial ports of this computer.</source>
        <translation>Liste les ports série de cet ordinateur.</translation>
    </message>
    <message id="2013">
        <source>Reads all parameters of a sensor and shows what they mean.</source>
        <translation>Lit tous les paramètres d'un capteur et montre leur signification.</translation>
    </message>
    <message id="2014">
        <source>Reads parameters and shows their texts as they are. The sensor need not be identified.</source>
        <translation>Lit des paramètres et montre leurs textes tels quels. Le capteur peut ne pas être identifié.</translation>
    </message>
    <message id="2015">
        <source>Saves all parameters of a sensor to a backup file.</source>
        <translation>Enregistre tous les paramètres d'un capteur dans un fichier de sauvegarde.</translation>
    </message>
    <message id="2016">
        <source>Compares a sensor with a backup file, or two backup files.</source>
        <translation>Compare un capteur à un fichier de sauvegarde, ou deux fichiers de sauvegarde.</translation>
    </message>
    <message id="2017">
        <source>Shows what a backup file or a lookup table holds.</source>
        <translation>Montre ce que contient un fichier de sauvegarde ou une table de correspondance.</translation>
    </message>
    <message id="2020">
        <source>%2 is no value that %1 can have.</source>
        <extracomment>%1 option, %2 what was given</extracomment>
        <translation>%2 n'est pas une valeur possible de %1.</translation>
    </message>
    <message id="2021">
        <source>Name the sensor's port with --port.</source>
        <translation>Indiquez le port du capteur avec --port.</translation>
    </message>
    <message id="2022">
        <source>The command is used like this:
%1</source>
        <extracomment>%1 command line</extracomment>
        <translation>La commande s'utilise ainsi :
%1</translation>
    </message>
    <message id="2023">
        <source>The sensor's supply is switched by hand, but there is no terminal at which you could be told when.</source>
        <translation>L'alimentation du capteur est commutée à la main, mais il n'y a pas de terminal où vous dire quand.</translation>
    </message>
    <message id="2024">
        <source>There is no command "%1". All are listed by --help.</source>
        <extracomment>%1 what was given</extracomment>
        <translation>Il n'y a pas de commande « %1 ». --help les liste toutes.</translation>
    </message>
    <message id="2025">
        <source>The language cannot be loaded.</source>
        <translation>La langue ne peut pas être chargée.</translation>
    </message>
    <message id="2026">
        <source>%1 stands for no device.</source>
        <extracomment>%1 COM number</extracomment>
        <translation>%1 ne désigne aucun appareil.</translation>
    </message>
    <message id="2027">
        <source>Switch the sensor's supply off, then press Enter. Type n and Enter if the sensor is ready for programming already.</source>
        <translation>Coupez l'alimentation du capteur, puis appuyez sur Entrée. Tapez n puis Entrée si le capteur est déjà prêt à être programmé.</translation>
    </message>
    <message id="2028">
        <source>Switch the sensor's supply on now, then press Enter.</source>
        <translation>Rétablissez maintenant l'alimentation du capteur, puis appuyez sur Entrée.</translation>
    </message>
    <message id="2029">
        <source>The sensor's firmware revision %1 is that of type %2, not of the one that was named. Nothing else was done.</source>
        <extracomment>%1 revision, %2 type</extracomment>
        <translation>La révision de firmware %1 du capteur est celle du type %2, pas du type indiqué. Rien d'autre n'a été fait.</translation>
    </message>
    <message id="2030">
        <source>Interrupted.</source>
        <translation>Interrompu.</translation>
    </message>
    <message id="2031">
        <source>The results could not be written to standard output: %1.</source>
        <extracomment>%1 reason</extracomment>
        <translation>Les résultats n'ont pas pu être écrits sur la sortie standard : %1.</translation>
    </message>
    <message id="2032">
        <source>yes</source>
        <extracomment>Typed as an answer; its first letter is enough</extracomment>
        <translation>oui</translation>
    </message>
    <message id="2033">
        <source>The file %1 exists. Overwrite it?</source>
        <extracomment>%1 path</extracomment>
        <translation>Le fichier %1 existe. L'écraser ?</translation>
    </message>
    <message id="2034">
        <source>The file %1 exists and was not overwritten. --yes overwrites it.</source>
        <extracomment>%1 path</extracomment>
        <translation>Le fichier %1 existe et n'a pas été écrasé. --yes l'écrase.</translation>
    </message>
    <message id="2035">
        <source>%1 is no parameter of a sensor.</source>
        <extracomment>%1 what was given</extracomment>
        <translation>%1 n'est pas un paramètre d'un capteur.</translation>
    </message>
    <message id="2036">
        <source>The file %1 is neither a backup file nor a lookup table.</source>
        <extracomment>%1 path</extracomment>
        <translation>Le fichier %1 n'est ni un fichier de sauvegarde ni une table de correspondance.</translation>
    </message>
    <message id="2037">
        <source>Sensor of type %1, version answer %2</source>
        <translation>Capteur de type %1, réponse de version %2</translation>
    </message>
    <message id="2038">
        <source>Sensor of type %1 (chosen by hand), version answer %2</source>
        <translation>Capteur de type %1 (choisi à la main), réponse de version %2</translation>
    </message>
    <message id="2039">
        <source>Sensor that is not identified, version answer %1</source>
        <translation>Capteur non identifié, réponse de version %1</translation>
    </message>
    <message id="2040">
        <source>All are equal.</source>
        <extracomment>Parameters of a comparison</extracomment>
        <translation>Tous sont égaux.</translation>
    </message>
    <message id="2041">
        <source>not there</source>
        <extracomment>Of a parameter in a file</extracomment>
        <translation>absent</translation>
    </message>
    <message id="2042">
        <source>The settings file %1 does not exist.</source>
        <extracomment>%1 path</extracomment>
        <translation>Le fichier de réglages %1 n'existe pas.</translation>
    </message>
    <message id="2060">
        <source>Writes saved parameters to a sensor, restarts it and compares.</source>
        <translation>Écrit des paramètres enregistrés dans un capteur, le redémarre et compare.</translation>
    </message>
    <message id="2061">
        <source>Changes output settings of a sensor, restarts it and compares. What is not named stays.</source>
        <translation>Modifie des réglages de sortie d'un capteur, le redémarre et compare. Ce qui n'est pas nommé reste.</translation>
    </message>
    <message id="2062">
        <source>Shows the magnet's position until the time is over or the command is ended.</source>
        <translation>Affiche la position de l'aimant jusqu'à la fin du temps ou de la commande.</translation>
    </message>
    <message id="2063">
        <source>Lists the states that sensors had before they were written to, shows one, or puts one back.</source>
        <translation>Liste les états que les capteurs avaient avant une écriture, en affiche un ou en rétablit un.</translation>
    </message>
    <message id="2064">
        <source>Writes even if what the sensor has now cannot be kept in the journal.</source>
        <translation>Écrit même si l'état actuel du capteur ne peut pas être conservé.</translation>
    </message>
    <message id="2065">
        <source>The password that skip-count needs.</source>
        <translation>Le mot de passe exigé par skip-count.</translation>
    </message>
    <message id="2066">
        <source>What is written for an offset that is not named while the data format has a multiplier.</source>
        <translation>Ce qui est écrit pour un décalage non nommé quand le format de données a un multiplicateur.</translation>
    </message>
    <message id="2067">
        <source>How long the position is shown.</source>
        <translation>La durée d'affichage de la position.</translation>
    </message>
    <message id="2068">
        <source>Records the positions in a file.</source>
        <translation>Enregistre les positions dans un fichier.</translation>
    </message>
    <message id="2070">
        <source>Say what is to be written: --all or --output-only.</source>
        <translation>Indiquez ce qui doit être écrit : --all ou --output-only.</translation>
    </message>
    <message id="2071">
        <source>Write this to the sensor?</source>
        <translation>Écrire cela dans le capteur ?</translation>
    </message>
    <message id="2072">
        <source>Nothing was written, because nobody has agreed. --yes agrees.</source>
        <translation>Rien n'a été écrit, car personne n'a donné son accord. --yes le donne.</translation>
    </message>
    <message id="2073">
        <source>--no-journal writes all the same.</source>
        <translation>--no-journal écrit quand même.</translation>
    </message>
    <message id="2074">
        <source>While safe writes are switched off the sensor is not read before: a backup can only be restored with --all. Nothing was written.</source>
        <translation>Tant que l'écriture sûre est désactivée, le capteur n'est pas lu avant : une sauvegarde ne peut être restaurée qu'avec --all. Rien n'a été écrit.</translation>
    </message>
    <message id="2075">
        <source>%1 is no setting. Settings are written NAME=VALUE, with these names: %2</source>
        <extracomment>%1 what was given, %2 names</extracomment>
        <translation>%1 n'est pas un réglage. Les réglages s'écrivent NOM=VALEUR, avec ces noms : %2</translation>
    </message>
    <message id="2076">
        <source>%2 is no value of %1. Its values: %3</source>
        <extracomment>%1 setting, %2 what was given, %3 values</extracomment>
        <translation>%2 n'est pas une valeur de %1. Ses valeurs : %3</translation>
    </message>
    <message id="2077">
        <source>Sensors of type %1 do not have %2. Nothing was written.</source>
        <extracomment>%1 type, %2 setting</extracomment>
        <translation>Les capteurs de type %1 n'ont pas %2. Rien n'a été écrit.</translation>
    </message>
    <message id="2078">
        <source>The measurement direction changes, and the offset with it: name the new offset, too. Nothing was written.</source>
        <translation>Le sens de mesure change, et le décalage avec lui : nommez aussi le nouveau décalage. Rien n'a été écrit.</translation>
    </message>
    <message id="2079">
        <source>Choose with --offset-count=keep-length or --offset-count=multiplied. Nothing was written.</source>
        <translation>Choisissez avec --offset-count=keep-length ou --offset-count=multiplied. Rien n'a été écrit.</translation>
    </message>
    <message id="2080">
        <source>%1 is named twice.</source>
        <extracomment>%1 setting</extracomment>
        <translation>%1 est nommé deux fois.</translation>
    </message>
    <message id="2081">
        <source>then a pause of %1 ms</source>
        <translation>puis une pause de %1 ms</translation>
    </message>
    <message id="2082">
        <source>The journal has no entry %1.</source>
        <translation>Le journal n'a pas d'entrée %1.</translation>
    </message>
    <message id="2100">
        <source>%1 hexadecimal is %2.</source>
        <translation>%1 en hexadécimal vaut %2.</translation>
    </message>
    <message id="2101">
        <source>%1 hexadecimal; the firmware revision is %2, as the bounds in the settings are written.</source>
        <translation>%1 en hexadécimal ; la révision du micrologiciel est %2, comme les limites dans les réglages.</translation>
    </message>
    <message id="2102">
        <source>%1 = 512 × gradient ÷ resolution in µm.</source>
        <translation>%1 = 512 × gradient ÷ résolution en µm.</translation>
    </message>
    <message id="2103">
        <source>Gradient and resolution give %1.</source>
        <translation>Le gradient et la résolution donnent %1.</translation>
    </message>
    <message id="2104">
        <source>The code of a stroke length of %1 mm.</source>
        <translation>Le code d'une course de mesure de %1 mm.</translation>
    </message>
    <message id="2105">
        <source>%1 or %2</source>
        <translation>%1 ou %2</translation>
    </message>
    <message id="2106">
        <source>No stroke length has this code.</source>
        <translation>Aucune course de mesure n'a ce code.</translation>
    </message>
    <message id="2107">
        <source>As Read from the Sensor</source>
        <translation>Tel que lu dans le capteur</translation>
    </message>
    <message id="2108">
        <source>Read a Parameter</source>
        <translation>Lire un paramètre</translation>
    </message>
    <message id="2109">
        <source>Received, as Text</source>
        <translation>Réception, en texte</translation>
    </message>
    <message id="2110">
        <source>Enter sends; Up and Down show what was sent before.</source>
        <translation>Entrée envoie ; Haut et Bas montrent ce qui a été envoyé avant.</translation>
    </message>
    <message id="2111">
        <source>Not everything that was pasted has a cell in the table. What lies beyond its edge was left out.</source>
        <translation>Tout ce qui a été collé n'a pas de cellule dans le tableau. Ce qui dépasse son bord a été omis.</translation>
    </message>
    <message id="2112">
        <source>Paste</source>
        <translation>Coller</translation>
    </message>
    <message id="2113">
        <source>The file cannot hold this; it will hold %1.</source>
        <translation>Le fichier ne peut pas contenir cela ; il contiendra %1.</translation>
    </message>
    <message id="2114">
        <source>Selected line, in words</source>
        <translation>Ligne choisie, en clair</translation>
    </message>
    <message id="2115">
        <source>Copy with Times</source>
        <translation>Copier avec les heures</translation>
    </message>
    <message id="2116">
        <source>Follow</source>
        <translation>Suivre</translation>
    </message>
    <message id="2117">
        <source>Find</source>
        <translation>Rechercher</translation>
    </message>
    <message id="2118">
        <source>Next</source>
        <translation>Suivant</translation>
    </message>
    <message id="2119">
        <source>Previous</source>
        <translation>Précédent</translation>
    </message>
    <message id="2120">
        <source>%1 of %2</source>
        <translation>%1 sur %2</translation>
    </message>
    <message id="2121">
        <source>searching: %1 so far</source>
        <translation>recherche : %1 jusqu'ici</translation>
    </message>
    <message id="2122">
        <source>Not found</source>
        <translation>Introuvable</translation>
    </message>
    <message id="2123">
        <source>Read of %1.</source>
        <translation>Lecture de %1.</translation>
    </message>
    <message id="2124">
        <source>Write of %1: %2.</source>
        <translation>Écriture de %1 : %2.</translation>
    </message>
    <message id="2125">
        <source>Answer, %1: %2.</source>
        <translation>Réponse, %1 : %2.</translation>
    </message>
    <message id="2126">
        <source>Command %1.</source>
        <translation>Commande %1.</translation>
    </message>
    <message id="2127">
        <source>Position, as the sensor streams it: SSI word %1 hexadecimal.</source>
        <translation>Position, telle que le capteur l'émet en continu : mot SSI %1 en hexadécimal.</translation>
    </message>
    <message id="2128">
        <source>The supply line (RTS) could not be switched: %1.</source>
        <translation>La ligne d'alimentation (RTS) n'a pas pu être commutée : %1.</translation>
    </message>
    <message id="2129">
        <source>The port could not be emptied: %1.</source>
        <translation>Le port n'a pas pu être vidé : %1.</translation>
    </message>
    <message id="2130">
        <source>Sending failed: %1.</source>
        <translation>L'envoi a échoué : %1.</translation>
    </message>
    <message id="2131">
        <source>Receiving failed: %1.</source>
        <translation>La réception a échoué : %1.</translation>
    </message>
    <message id="2132">
        <source>A frame left the port only in part.</source>
        <translation>Une trame n'a quitté le port qu'en partie.</translation>
    </message>
    <message id="2133">
        <source>The answer above has %1 bytes; 7 to 9 are expected.</source>
        <translation>La réponse ci-dessus a %1 octets ; 7 à 9 sont attendus.</translation>
    </message>
    <message id="2134">
        <source>The answer above does not end as an answer does.</source>
        <translation>La réponse ci-dessus ne se termine pas comme une réponse.</translation>
    </message>
    <message id="2135">
        <source>A value of %1 bytes is too long for a frame; nothing was sent.</source>
        <translation>Une valeur de %1 octets est trop longue pour une trame ; rien n'a été envoyé.</translation>
    </message>
    <message id="2136">
        <source>The sensor is of type %1, as its firmware revision says.</source>
        <translation>Le capteur est de type %1, d'après sa révision de micrologiciel.</translation>
    </message>
    <message id="2137">
        <source>The firmware revision of the sensor lies in none of the configured ranges.</source>
        <translation>La révision du micrologiciel du capteur n'est dans aucune des plages configurées.</translation>
    </message>
    <message id="2138">
        <source>Nothing was received in time.</source>
        <translation>Rien n'a été reçu à temps.</translation>
    </message>
    <message id="2139">
        <source>Not a whole answer, as text: %1.</source>
        <translation>Réponse incomplète, en texte : %1.</translation>
    </message>
    <message id="2140">
        <source>&amp;Open Backup File…</source>
        <translation>&amp;Ouvrir un fichier de sauvegarde…</translation>
    </message>
    <message id="2141">
        <source>Backup File</source>
        <translation>Fichier de sauvegarde</translation>
    </message>
    <message id="2142">
        <source>Re&amp;port…</source>
        <translation>Rappor&amp;t…</translation>
    </message>
    <message id="2143">
        <source>Sensor Report</source>
        <translation>Rapport du capteur</translation>
    </message>
    <message id="2144">
        <source>Web pages (*.html);;PDF documents (*.pdf);;All files (*)</source>
        <translation>Pages web (*.html);;Documents PDF (*.pdf);;Tous les fichiers (*)</translation>
    </message>
    <message id="2145">
        <source>Note</source>
        <translation>Remarque</translation>
    </message>
    <message id="2146">
        <source>Date and time</source>
        <translation>Date et heure</translation>
    </message>
    <message id="2147">
        <source>Program</source>
        <translation>Programme</translation>
    </message>
    <message id="2148">
        <source>Last verification</source>
        <translation>Dernière vérification</translation>
    </message>
    <message id="2149">
        <source>The journal has no write to this sensor.</source>
        <translation>Le journal n'a aucune entrée pour ce capteur.</translation>
    </message>
    <message id="2150">
        <source>&amp;Support File…</source>
        <translation>Fichier d'a&amp;ssistance…</translation>
    </message>
    <message id="2151">
        <source>Support File</source>
        <translation>Fichier d'assistance</translation>
    </message>
    <message id="2152">
        <source>This is what the file will hold; it stays on this computer until you pass it on. Delete here what you do not want to pass on.</source>
        <translation>Voici ce que le fichier contiendra ; il reste sur cet ordinateur jusqu'à ce que vous le transmettiez. Supprimez ici ce que vous ne voulez pas transmettre.</translation>
    </message>
    <message id="2153">
        <source>Versions</source>
        <translation>Versions</translation>
    </message>
    <message id="2155">
        <source>Last kept state of a sensor</source>
        <translation>Dernier état conservé d'un capteur</translation>
    </message>
    <message id="2156">
        <source>The last %1 of %2 lines</source>
        <translation>Les %1 dernières lignes sur %2</translation>
    </message>
    <message id="2157">
        <source>Sensor type</source>
        <translation>Type de capteur</translation>
    </message>
    <message id="2160">
        <source>Sensor connected</source>
        <extracomment>State in the line above the page</extracomment>
        <translation>Capteur connecté</translation>
    </message>
    <message id="2161">
        <source>No sensor connected</source>
        <extracomment>State in the line above the page</extracomment>
        <translation>Aucun capteur connecté</translation>
    </message>
    <message id="2162">
        <source>Sensor not identified</source>
        <extracomment>State in the line above the page</extracomment>
        <translation>Capteur non identifié</translation>
    </message>
    <message id="2163">
        <source>Connection lost</source>
        <extracomment>State in the line above the page</extracomment>
        <translation>Connexion perdue</translation>
    </message>
    <message id="2164">
        <source>Type %1</source>
        <extracomment>%1 is the sensor's type, a digit</extracomment>
        <translation>Type %1</translation>
    </message>
    <message id="2165">
        <source>Type %1, chosen by hand</source>
        <extracomment>%1 is the sensor's type, a digit</extracomment>
        <translation>Type %1, choisi à la main</translation>
    </message>
    <message id="2166">
        <source>Firmware revision %1</source>
        <extracomment>%1 are two hexadecimal digits</extracomment>
        <translation>Révision du micrologiciel %1</translation>
    </message>
    <message id="2167">
        <source>Safe writes on</source>
        <translation>Écriture sûre activée</translation>
    </message>
    <message id="2168">
        <source>Safe writes off</source>
        <translation>Écriture sûre désactivée</translation>
    </message>
    <message id="2170">
        <source>Go Back</source>
        <translation>Reculer</translation>
    </message>
    <message id="2171">
        <source>Go Forward</source>
        <translation>Avancer</translation>
    </message>
    <message id="2172">
        <source>%1 has vanished right after it was plugged in. Other programs take some adapters, such as braille display drivers (brltty) or ModemManager: have them leave it alone, then plug it in again.</source>
        <translation>%1 a disparu juste après avoir été branché. D'autres programmes s'emparent de certains adaptateurs, comme les pilotes d'afficheurs braille (brltty) ou ModemManager : faites en sorte qu'ils le laissent, puis rebranchez-le.</translation>
    </message>
    <message id="2200">
        <source>The log keeps its newest lines, up to 256 MB. Older lines that are gone: %1</source>
        <extracomment>Note above the communications log; %1 number of lines</extracomment>
        <translation>Le journal garde ses lignes les plus récentes, jusqu'à 256 Mo. Lignes plus anciennes qui n'existent plus : %1</translation>
    </message>
    <message id="2220">
        <source>Licence:</source>
        <extracomment>Caption in the About dialog</extracomment>
        <translation>Licence :</translation>
    </message>
    <message id="2221">
        <source>Commit:</source>
        <extracomment>Caption in the About dialog: the revision of the sources</extracomment>
        <translation>Commit :</translation>
    </message>
    <message id="2222">
        <source>Qt version:</source>
        <extracomment>Caption in the About dialog</extracomment>
        <translation>Version de Qt :</translation>
    </message>
    <message id="2230">
        <source>Reading was cancelled. What is empty was not read.</source>
        <extracomment>the user has cancelled the reading of a page</extracomment>
        <translation>Lecture annulée. Ce qui est vide n'a pas été lu.</translation>
    </message>
    <message id="2260">
        <source>The tables of the page for temperature compensation hold values that are in no file. Discard them?</source>
        <translation>Les tableaux de la page de compensation de température contiennent des valeurs qui ne sont dans aucun fichier. Les abandonner ?</translation>
    </message>
    <message id="2261">
        <source>The file replaces values of the table that are in no file. Discard them?</source>
        <translation>Le fichier remplace des valeurs du tableau qui ne sont dans aucun fichier. Les abandonner ?</translation>
    </message>
    <message id="2265">
        <source>You have no permission to open %1. Only the administrator of the system can give access to it.</source>
        <extracomment>%1 port</extracomment>
        <translation>Vous n'avez pas l'autorisation d'ouvrir %1. Seul l'administrateur du système peut y donner accès.</translation>
    </message>
    <message id="2266">
        <source>The port is another one than that of the sensor that was written to.</source>
        <translation>Le port n'est pas celui du capteur dans lequel on a écrit.</translation>
    </message>
    <message id="2267">
        <source>Pelorin ends without its port. If you stay, it goes on without one.</source>
        <translation>Sans son port, Pelorin se termine. Si vous restez, il continue sans port.</translation>
    </message>
    <message id="2268">
        <source>Another sensor answers than the one that was connected. Connect it first. Nothing was written.</source>
        <translation>Le capteur qui répond n'est pas celui qui était connecté. Connectez-le d'abord. Rien n'a été écrit.</translation>
    </message>
    <message id="2269">
        <source>Saved, and not taken over, since this type of sensor does not have it: %1.</source>
        <extracomment>%1 parameters</extracomment>
        <translation>Sauvegardé et non repris, car ce type de capteur ne l'a pas : %1.</translation>
    </message>
</context>
</TS>
