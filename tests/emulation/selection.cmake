# The tests of Brim that .ci/run runs with the phone's library, in addition to the test programs with the label
# "selection". They call every hooked and added method and every photo provider, which phone_report checks.
set(selection
    # Start
    StartUp.InstallsTheHookTableInOrder
    StartUp.TheLibraryHasTheVersionOfTheProject
    StartUp.DisabledLibraryInstallsNothing
    MissingClasses.LeaveAllHooksWithoutEffect
    Settings.AreTheDefaultsInRegistrationOrderIfNothingIsStored
    # Hooked and added methods
    BannerWindow.ActionsOfTheContentArePerformedByThePlatform
    BannerWindow.ContentHasUserInteractionEnabled
    BannerWindow.CanBecomeKeyWindow
    BannerWindow.FirstStatusBarWindowIsTheSharedOne
    CommandChannel.GrabberIsHandledByThePlatformWithoutAPersistentBanner
    ControllerWithoutRequest.ReturnsNothingAndExecutesNothing
    Dismissal.ForcedRequestDismissesAPersistentBanner
    FixedColorMode.OverridesTheControllersAppearance
    HomeButton.DismissesAPersistentBannerWithoutAnimation
    LongLook.IsNotPresentedForABanner
    NotificationList.FollowUpThatIsAppendedToTheBannerIsRemoved
    TestBanner.IsPublishedAfterTheEarlierServersAreDeallocated
    TestBanner.IsPublishedOnceAfterAnotherHomeScreenIsDeallocated
    TestBanner.OnlyVibratesWithoutAServer
    # Object lifetimes
    ObjectLifetime.AddedPropertyRetainsItsValue
    ObjectLifetime.BannerIsRetainedOnlyByItsSuperviewAndItsCreator
    ObjectLifetime.BannerReleasesItsPartsWhenItIsDeallocated
    ObjectLifetime.ColorSetRetainsItsCustomColors
    # Exceptions of the platform
    Exception.PassesThroughAHook
    Exception.PassesThroughAnAddedMethod
    Exception.PassesThroughADispatchedBlock
    Exception.PassesThroughAnAnimationBlock
    Exception.PassesThroughACompletionBlock
    Exception.PassesThroughATimer
    Exception.PassesThroughAnObserver
    # The Messages app
    MessagesAlone.DeallocatedListReceivesNoRequests
    MessagesAlone.InstallsOnlyTheHooksOfTheMessagesApp
    MessagesAlone.ListStoresTheIdentifierOfTheLastHandledRequest
    MessagesAlone.ReceivesEveryFieldOfRepliesAndReceipts
    MessagesReply.LaunchesTheAppPostsTheRequestVibratesAndIsReported
    # Photo providers
    DiscordPhoto.IsTheAvatarOfTheAuthorWith80Pixels
    InstagramPhoto.IsLoadedFromTheAddressInTheUserInfo
    MessagesPhoto.IsThePictureOfTheContactWithTheIdentifier
    MessengerPhoto.IsTheSquarePictureOfTheSender
    SlackPhoto.NameIsMatchedByTheLikeOperator
    TelegramPhoto.IsTheAvatarFileOfTheSender
    TwitterPhoto.IsTheFirstPictureOfTheProfilePage
    WhatsAppPhoto.IsTheFileOfThePerson
    WrongTypes.MissingValueMeansNoPicture)
set_tests_properties(${selection} PROPERTIES LABELS selection)
